#pragma once

#include <QString>

namespace jotwell {

/// The last two components of a long path, behind "..."; a path of fewer than four stays as it is.
[[nodiscard]] QString truncatedPath(const QString& path);

/// How a row of the panel shows its note. Colours are called by their names. Pure.
struct SearchResultRow {
    /// Of its symbols: "primary" or "accent".
    [[nodiscard]] static QString iconColor(bool isSelected);
    /// "gray0.2", "gray0.1" or "clear".
    [[nodiscard]] static QString backgroundColor(bool isSelected, bool isHovered);
    /// Of what is marked in the found text: "orange" or "systemAccent".
    [[nodiscard]] static QString highlightColor(bool isSelected);
};

} // namespace jotwell
