#include "Views/KeyCaps.h"

#include "Platform/KeyNames.h"

#include <QJSEngine>

namespace jotwell {

KeyCaps& KeyCaps::ofAllViews()
{
    static KeyCaps caps;
    return caps;
}

KeyCaps* KeyCaps::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&ofAllViews(), QJSEngine::CppOwnership);
    return &ofAllViews();
}

QString KeyCaps::text(const QString& key) const
{
    return m_names ? m_names->nameOf(key) : key;
}

} // namespace jotwell
