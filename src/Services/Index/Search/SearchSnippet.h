#pragma once

#include "Services/Index/Search/LowercaseMatcher.h"

#include <QByteArrayView>
#include <QString>

#include <vector>

namespace jotwell {

/// The first sentence of `text` (UTF-8) of 11 characters or more that holds one of the terms, or
/// else the whole text; cut to 200 characters, with "..." behind if it was. Any thread.
[[nodiscard]] QString createSimpleSnippet(QByteArrayView text,
                                          const std::vector<LowercaseMatcher>& terms);

/// The same for the words of a query.
[[nodiscard]] QString createSimpleSnippet(QByteArrayView text, const QString& query);

} // namespace jotwell
