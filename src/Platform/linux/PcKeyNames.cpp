#include "Platform/linux/PcKeyNames.h"

namespace jotwell {

QString PcKeyNames::nameOf(const QString& key) const
{
    if (key == u"⌘")
        return QStringLiteral("Ctrl");
    if (key == u"⌥")
        return QStringLiteral("Alt");
    if (key == u"⌃")
        return QStringLiteral("Super");
    if (key == u"⇧")
        return QStringLiteral("Shift");
    return key;
}

} // namespace jotwell
