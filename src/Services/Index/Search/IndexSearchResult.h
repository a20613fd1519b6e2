#pragma once

#include "Platform/Clock.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace jotwell {

/// Which way a note was found.
enum class MatchType {
    filename,
    tag,
    content, ///< in the texts in memory
    fullText ///< by the database's full-text table
};

/// A note that a search of the index found.
struct IndexSearchResult {
    QString title;
    QString path;
    QStringList tags;
    Clock::TimePoint modificationDate;
    MatchType matchType = MatchType::filename;
    std::optional<QString> snippet;
    std::optional<double> relevanceScore; ///< the smaller the better

    bool operator==(const IndexSearchResult&) const = default;
};

using IndexSearchResults = QList<IndexSearchResult>;

/// What one search cost.
struct SearchMetrics {
    double executionTime = 0; ///< seconds
    qsizetype filesScanned = 0;
    bool cacheHit = false;
    qsizetype resultCount = 0;

    /// Says it in the log of the index.
    void log() const;
};

struct SearchAnswer {
    IndexSearchResults results;
    SearchMetrics metrics;
};

} // namespace jotwell
