#pragma once

#include "Services/Input/Dropdown.h"

#include <QList>

#include <optional>
#include <variant>

namespace jotwell {

/// The rows of the open completion list. They are shared with the input state: neither a copy nor
/// the comparison with what the state still holds looks at each row.
class FloatingDropdownRows {
public:
    FloatingDropdownRows() = default;
    explicit FloatingDropdownRows(const CommandTemplateFields& fields);

    [[nodiscard]] qsizetype size() const;
    [[nodiscard]] Dropdown::Item item(qsizetype index) const;
    /// The first row that is equal to what shows as `row`.
    [[nodiscard]] std::optional<qsizetype> indexOf(const DropdownItem& row) const;

    bool operator==(const FloatingDropdownRows&) const = default;

private:
    std::variant<QList<Command>, ObsidianTemplates, QList<FolderItem>, QList<HashtagItem>> m_rows;
};

} // namespace jotwell
