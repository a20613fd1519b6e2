#pragma once

#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace jotwell {

/// The outcome of an operation that can fail: a value or an error, both plain values. Asking for
/// the one that isn't there is a programming error.
template <typename T, typename E>
class [[nodiscard]] Result {
public:
    Result(T value) : m_content(std::in_place_index<0>, std::move(value)) {}
    Result(E error) : m_content(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool ok() const { return m_content.index() == 0; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] const T& value() const { return *std::get_if<0>(&m_content); }
    [[nodiscard]] T& value() { return *std::get_if<0>(&m_content); }
    [[nodiscard]] const E& error() const { return *std::get_if<1>(&m_content); }

    [[nodiscard]] const T& operator*() const { return value(); }
    [[nodiscard]] const T* operator->() const { return &value(); }

private:
    static_assert(!std::is_same_v<T, E>, "value and error must differ in type");
    std::variant<T, E> m_content;
};

/// The outcome of an operation that gives nothing when it succeeds.
template <typename E>
class [[nodiscard]] Result<void, E> {
public:
    Result() = default;
    Result(E error) : m_error(std::move(error)) {}

    [[nodiscard]] bool ok() const { return !m_error; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] const E& error() const { return *m_error; }

private:
    std::optional<E> m_error;
};

} // namespace jotwell
