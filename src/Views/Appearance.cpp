#include "Views/Appearance.h"

#include "Platform/DesktopAppearance.h"

#include <QJSEngine>

#include <utility>

namespace jotwell {

Appearance& Appearance::ofAllViews()
{
    static Appearance appearance;
    return appearance;
}

Appearance* Appearance::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&ofAllViews(), QJSEngine::CppOwnership);
    return &ofAllViews();
}

void Appearance::follow(DesktopAppearance* desktop)
{
    if (m_desktop)
        m_desktop->setChanged({});
    m_desktop = desktop;
    if (m_desktop)
        m_desktop->setChanged([this] { update(); });
    update();
}

void Appearance::update()
{
    const bool wasDark = std::exchange(m_isDark, m_desktop && m_desktop->isDark());
    const bool hadHighContrast =
        std::exchange(m_hasHighContrast, m_desktop && m_desktop->hasHighContrast());
    if (m_isDark != wasDark)
        emit darkChanged();
    if (m_hasHighContrast != hadHighContrast)
        emit highContrastChanged();
}

} // namespace jotwell
