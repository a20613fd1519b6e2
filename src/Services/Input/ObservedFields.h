#pragma once

#include "Services/Input/CommandTemplateFields.h"

#include <functional>
#include <utility>

namespace jotwell {

/// The fields of the input state; tells of each assignment of another value. Main thread.
class ObservedFields {
public:
    explicit ObservedFields(std::function<void(CommandTemplateField)> changed)
        : m_changed(std::move(changed))
    {
    }
    ObservedFields(const ObservedFields&) = delete;
    ObservedFields& operator=(const ObservedFields&) = delete;

    [[nodiscard]] const CommandTemplateFields& values() const { return m_values; }
    const CommandTemplateFields* operator->() const { return &m_values; }

    /// Assigns to the field, as in `set<&CommandTemplateFields::text>(text)`.
    template <auto member, typename T>
    void set(T&& value)
    {
        if (m_values.*member == value)
            return;
        m_values.*member = std::forward<T>(value);
        m_changed(fieldOf<member>);
    }
    /// Leaves the field without a value.
    template <auto member>
    void clear()
    {
        set<member>(std::nullopt);
    }

private:
    std::function<void(CommandTemplateField)> m_changed;
    CommandTemplateFields m_values;
};

} // namespace jotwell
