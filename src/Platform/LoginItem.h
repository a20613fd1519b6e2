#pragma once

#include <QString>

#include <optional>

namespace jotwell {

/// The desktop's registration of this program as one to start at login. Main thread only.
class LoginItem {
public:
    enum class Status { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

    virtual ~LoginItem() = default;

    [[nodiscard]] virtual Status status() const = 0;

    /// Both give the reason if they fail, and nothing if they don't. A desktop may still want the
    /// user's approval after a registration.
    [[nodiscard]] virtual std::optional<QString> registerItem() = 0;
    [[nodiscard]] virtual std::optional<QString> unregisterItem() = 0;
};

} // namespace jotwell
