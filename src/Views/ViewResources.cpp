#include "Views/ViewResources.h"

#include "Views/Appearance.h"
#include "Views/KeyCaps.h"
#include "Views/ShadowImageProvider.h"
#include "Views/SymbolImageProvider.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QQmlEngine>

namespace jotwell {

void installViewResources(QQmlEngine& engine)
{
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
    engine.addImageProvider(QStringLiteral("shadow"), new ShadowImageProvider);
}

DesktopLooks::DesktopLooks(DesktopAppearance& appearance, const KeyNames& keyNames)
{
    Appearance::ofAllViews().follow(&appearance);
    KeyCaps::ofAllViews().setNames(&keyNames);
}

DesktopLooks::~DesktopLooks()
{
    Appearance::ofAllViews().follow(nullptr);
    KeyCaps::ofAllViews().setNames(nullptr);
}

void installFonts()
{
    QFont font = QGuiApplication::font();
    // Text fonts have black-and-white emoji of their own: the list must name the coloured ones.
    font.setFamilies({QFontInfo(font).family(), QStringLiteral("Noto Color Emoji")});
    QGuiApplication::setFont(font);
}

} // namespace jotwell
