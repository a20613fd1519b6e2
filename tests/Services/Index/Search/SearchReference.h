#pragma once

#include "Services/Index/Search/SearchQuery.h"

#include <QString>
#include <QStringList>

namespace jotwell {

// The searches in their plainest form, against which the quick ones are held.

[[nodiscard]] bool plainIsIn(const QString& text, const QString& term);
[[nodiscard]] SearchQuery plainParseSearchQuery(const QString& query);
[[nodiscard]] QString plainPrepareFTSQuery(const QString& query);
[[nodiscard]] QStringList plainContentTerms(const QString& query);
[[nodiscard]] QString plainSnippet(const QString& text, const QString& query);

} // namespace jotwell
