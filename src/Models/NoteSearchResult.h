#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace jotwell {

/// A note that was found. Each record has an identifier of its own: the same note found twice has
/// two.
struct NoteSearchResult {
    QUuid id;
    QString fileName; ///< without its extension
    QString filePath; ///< absolute
    QUrl fileURL;
    std::optional<QString> snippet;
    std::optional<double> relevanceScore;
    bool isFullTextResult = false;

    /// A record of the note at `path`, with a fresh identifier and nothing known of a match.
    [[nodiscard]] static NoteSearchResult forPath(const QString& path);
};

using NoteSearchResults = QList<NoteSearchResult>;

} // namespace jotwell
