#pragma once

#include <QString>
#include <QUuid>

#include <variant>

namespace jotwell {

/// What a row of the dropdown shows, whatever it stands for. Two rows are the same row when their
/// identifiers are of one kind and equal.
struct DropdownItem {
    std::variant<QUuid, QString> id;
    QString displayName;
    QString icon; ///< a symbol name, or the emoji itself for commands
    QString description;

    bool operator==(const DropdownItem&) const = default;
};

} // namespace jotwell
