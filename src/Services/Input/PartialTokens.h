#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace jotwell {

// The token at the end of a text, which is the one that the user is typing: the text is read as if
// the cursor stood at its end, and each of these is the end of the text as it stands. Pure; any
// thread; in time proportional to the text.

/// The last word of the text if it begins with "/"; empty if there is none.
[[nodiscard]] QString currentCommandInput(QStringView text);

/// The text from its last "$" on, unless a further word has begun behind the first one, which
/// finishes the parameter.
[[nodiscard]] std::optional<QString> currentParameterInput(QStringView text);

/// The text from its last "#" on, if that begins a word and the tag isn't finished.
[[nodiscard]] std::optional<QString> currentHashtagInput(QStringView text);

/// Whether a "$" and one of the names stand in the text, with white space or the end behind.
[[nodiscard]] bool hasExistingParameter(QStringView text, const QStringList& names);

} // namespace jotwell
