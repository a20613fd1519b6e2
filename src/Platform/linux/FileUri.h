#pragma once

#include <QString>

#include <optional>

namespace jotwell {

/// The absolute path that a "file" address names on this machine, without a slash at its end. None
/// if it names nothing here, or a place whose name is no text.
[[nodiscard]] std::optional<QString> localPathOf(const QString& uri);

} // namespace jotwell
