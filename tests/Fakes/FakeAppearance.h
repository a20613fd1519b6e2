#pragma once

#include "Platform/DesktopAppearance.h"

#include <functional>
#include <utility>

namespace jotwell {

/// A desktop whose user changes its appearance at will.
class FakeAppearance : public DesktopAppearance {
public:
    void set(bool isDark, bool hasHighContrast = false)
    {
        m_isDark = isDark;
        m_hasHighContrast = hasHighContrast;
        if (m_changed)
            m_changed();
    }
    [[nodiscard]] bool isFollowed() const { return static_cast<bool>(m_changed); }

    [[nodiscard]] bool isDark() const override { return m_isDark; }
    [[nodiscard]] bool hasHighContrast() const override { return m_hasHighContrast; }
    void setChanged(std::function<void()> changed) override { m_changed = std::move(changed); }

private:
    bool m_isDark = false;
    bool m_hasHighContrast = false;
    std::function<void()> m_changed;
};

} // namespace jotwell
