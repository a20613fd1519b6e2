#include "driver/Operations.h"

#include "AppDelegate.h"
#include "StatusMenu.h"
#include "Views/LocalKeyMonitor.h"
#include "driver/Session.h"

#include <QJsonArray>

namespace jotwell {

namespace {

QJsonValue toJson(const MenuEntry& entry)
{
    if (entry.title.isEmpty())
        return QJsonObject{{QStringLiteral("separator"), true}};
    return QJsonObject{
        {QStringLiteral("title"), entry.title},
        {QStringLiteral("keyEquivalent"),
         entry.keyEquivalent.isEmpty() ? QJsonValue() : QJsonValue(entry.keyEquivalent)},
        {QStringLiteral("modifiers"), static_cast<qint64>(entry.keyEquivalentModifierMask)},
    };
}

QJsonValue menu(Session& session)
{
    session.application().refreshMenuBar();
    QJsonArray entries;
    for (const MenuEntry& entry : session.desktop().statusItem.menu)
        entries.append(toJson(entry));
    return entries;
}

QJsonValue keyEquivalent(qint64 keyCode)
{
    const auto text = getKeyEquivalent(keyCode);
    return text ? QJsonValue(*text) : QJsonValue();
}

bool handled(Session& session, qint64 keyCode, qint64 flags, bool captureWindowIsKey)
{
    const KeyEvent event{KeyEvent::keyDown, static_cast<int>(keyCode), static_cast<quint64>(flags)};
    return session.application().localKeyMonitor().handleKeyDown(event, captureWindowIsKey);
}

} // namespace

void addApplicationOps(Operations& ops, Session& session)
{
    ops.add(u"AppDelegate.getKeyEquivalent", {u"keyCode"},
            [](qint64 keyCode) { return keyEquivalent(keyCode); });
    ops.add(u"AppDelegate.localKeyEvent", {u"keyCode", u"flags", u"captureWindowIsKey"},
            [&session](qint64 keyCode, qint64 flags, bool captureWindowIsKey) {
                return handled(session, keyCode, flags, captureWindowIsKey);
            });
    ops.add(u"AppDelegate.menu", {}, [&session] { return menu(session); });
}

} // namespace jotwell
