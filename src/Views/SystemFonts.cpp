#include "Views/SystemFonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

namespace jotwell {

namespace {

// The interface font may have emoji of its own, drawn in one colour: these have to be asked first.
QStringList colourEmojiFamilies()
{
    QStringList found;
    for (const char* const name :
         {"Noto Color Emoji", "Apple Color Emoji", "Twemoji", "Twitter Color Emoji", "JoyPixels"}) {
        const QString family = QString::fromLatin1(name);
        if (QFontDatabase::hasFamily(family))
            found.append(family);
    }
    return found;
}

// The desktop may name an alias, which a list of families doesn't resolve.
QString fixedFamily()
{
    return QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
}

} // namespace

SystemFonts::SystemFonts()
    : monospaced(QStringList(fixedFamily()) + colourEmojiFamilies()),
      emoji(colourEmojiFamilies() + QGuiApplication::font().families())
{
}

QFont SystemFonts::monospacedFont(int pixelSize, int weight) const
{
    QFont font(monospaced);
    font.setPixelSize(pixelSize);
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

QFont SystemFonts::emojiFont(int pixelSize) const
{
    QFont font(emoji);
    font.setPixelSize(pixelSize);
    return font;
}

const SystemFonts& SystemFonts::shared()
{
    static const SystemFonts fonts;
    return fonts;
}

} // namespace jotwell
