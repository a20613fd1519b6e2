#pragma once

#include "Platform/DesktopAppearance.h"

#include <QObject>

#include <functional>
#include <utility>

namespace jotwell {

/// A desktop whose appearance is switched in the gallery.
class GalleryAppearance : public QObject, public DesktopAppearance {
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark WRITE setDark NOTIFY changed)
    Q_PROPERTY(bool highContrast READ hasHighContrast WRITE setHighContrast NOTIFY changed)

public:
    [[nodiscard]] bool isDark() const override { return m_isDark; }
    void setDark(bool dark)
    {
        m_isDark = dark;
        tell();
    }
    [[nodiscard]] bool hasHighContrast() const override { return m_hasHighContrast; }
    void setHighContrast(bool highContrast)
    {
        m_hasHighContrast = highContrast;
        tell();
    }
    void setChanged(std::function<void()> told) override { m_told = std::move(told); }

signals:
    void changed();

private:
    void tell()
    {
        if (m_told)
            m_told();
        emit changed();
    }

    bool m_isDark = false;
    bool m_hasHighContrast = false;
    std::function<void()> m_told;
};

} // namespace jotwell
