#pragma once

#include <QString>
#include <QUuid>

#include <array>
#include <chrono>

namespace jotwell {

enum class ToastType { success, warning, error };

inline constexpr std::array allToastTypes{ToastType::success, ToastType::warning, ToastType::error};

// Names of system colours and of symbols; which pixels they are is up to the views.
[[nodiscard]] QString color(ToastType type);
[[nodiscard]] QString icon(ToastType type);
[[nodiscard]] QString iconColor(ToastType type);

/// A short message to the user.
struct Toast {
    using Seconds = std::chrono::duration<double>;

    QUuid id;
    QString message;
    ToastType type = ToastType::success;
    Seconds duration{2.0}; ///< time on screen

    /// With a fresh identifier.
    [[nodiscard]] static Toast make(ToastType type, const QString& message, Seconds duration);

    bool operator==(const Toast&) const = default;
};

} // namespace jotwell
