#pragma once

#include <QString>
#include <QStringList>

namespace jotwell {

// What the words of a search mean. Pure; any thread.

struct SearchQuery {
    QStringList filenameTerms;
    QStringList hashtags; ///< without their "#"

    bool operator==(const SearchQuery&) const = default;
};

/// The words of a query, cut at blanks and tabs; case is kept.
[[nodiscard]] SearchQuery parseSearchQuery(const QString& query);

/// The query as the full-text table is to get it.
[[nodiscard]] QString prepareFTSQuery(const QString& query);

/// The words that a note's text is searched for: in lower case, cut at each U+0020.
[[nodiscard]] QStringList contentTerms(const QString& query);

} // namespace jotwell
