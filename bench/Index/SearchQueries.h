#pragma once

#include <QString>
#include <QStringList>

namespace jotwell::bench {

// Fixed queries for the made vaults. Ranks tell how frequent a word is: 0 is in nearly every note,
// 30,000 in few.

/// Queries of the texts: common, rare and absent words, several, short, of other scripts.
[[nodiscard]] QStringList contentQueries();
/// Queries of file names and tags.
[[nodiscard]] QStringList nameQueries();

/// The longest word of a query: a search can't do with less than to look for that.
[[nodiscard]] QString longestTerm(const QString& query);

} // namespace jotwell::bench
