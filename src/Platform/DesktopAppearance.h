#pragma once

#include <functional>

namespace jotwell {

/// How the user wants programs to look. Asking never waits: until the desktop has answered, this is
/// a good guess. Main thread only.
class DesktopAppearance {
public:
    virtual ~DesktopAppearance() = default;

    [[nodiscard]] virtual bool isDark() const = 0;
    [[nodiscard]] virtual bool hasHighContrast() const = 0;

    /// `changed` is called after each change of an answer, in place of what was set before.
    virtual void setChanged(std::function<void()> changed) = 0;
};

} // namespace jotwell
