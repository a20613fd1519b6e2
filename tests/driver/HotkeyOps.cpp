#include "driver/Operations.h"

#include "Services/GlobalHotkeyManager.h"
#include "driver/Session.h"

#include <QJsonArray>

namespace jotwell {

namespace {

using Channel = GlobalHotkeyManager::Channel;
using Times = QList<Clock::TimePoint>;

QJsonValue dumped(GlobalHotkeyManager& manager)
{
    return QJsonObject{
        {QStringLiteral("isEnabled"), manager.isEnabled()},
        {QStringLiteral("hasEventTap"), manager.hasEventTap()},
        {QStringLiteral("hasEventMonitor"), manager.hasEventMonitor()},
        {QStringLiteral("customKeyCode"), manager.customKeyCode()},
        {QStringLiteral("customModifiers"), static_cast<qint64>(manager.customModifiers())},
        {QStringLiteral("lastPermissionStatus"), manager.lastPermissionStatus()},
        {QStringLiteral("hasPermissionPollingTimer"), manager.hasPermissionPollingTimer()},
        {QStringLiteral("lastTriggerTime"), toJson(manager.deduplication().lastTriggerTime)},
    };
}

void setPlatform(FakeHotkeyChannels& channels, std::optional<bool> trusted,
                 std::optional<bool> tapAvailable)
{
    channels.trusted = trusted.value_or(channels.trusted);
    channels.tapAvailable = tapAvailable.value_or(channels.tapAvailable);
}

std::optional<Channel> channelOf(const QString& name)
{
    if (name == u"cg")
        return Channel::eventTap;
    return name == u"ns" ? std::optional(Channel::globalMonitor) : std::nullopt;
}

Answer matched(const GlobalHotkeyManager& manager, qint64 keyCode, qint64 flags,
               const QString& channelName)
{
    const auto channel = channelOf(channelName);
    if (!channel)
        return badRequest(QStringLiteral("\"channel\" is mistyped"));
    return QJsonValue(manager.checkHotkeyMatch(keyCode, static_cast<quint64>(flags), *channel));
}

KeyEvent eventOf(int type, int keyCode, qint64 flags)
{
    return {type, keyCode, static_cast<quint64>(flags)};
}

std::optional<Times> timesIn(const QJsonValue& json)
{
    Times times;
    for (const QJsonValue each : json.toArray()) {
        const auto time = fromJson<Clock::TimePoint>(each);
        if (!time)
            return std::nullopt;
        times.append(*time);
    }
    return json.isArray() ? std::optional(times) : std::nullopt;
}

Answer triggered(Session& session, const QJsonValue& json, std::optional<Clock::TimePoint> last)
{
    const auto times = timesIn(json);
    if (!times)
        return badRequest(QStringLiteral("\"times\" is missing or mistyped"));
    GlobalHotkeyManager& manager = session.hotkey();
    Clock::TimePoint& lastTriggerTime = manager.deduplication().lastTriggerTime;
    lastTriggerTime = last.value_or(lastTriggerTime);
    QJsonArray accepted;
    for (const Clock::TimePoint time : *times) {
        session.platform().clock().holdAt(time);
        const auto before = lastTriggerTime;
        manager.triggerHotkey();
        accepted.append(lastTriggerTime != before);
    }
    session.platform().clock().holdAt(std::nullopt);
    return QJsonValue(QJsonObject{{QStringLiteral("accepted"), accepted},
                                  {QStringLiteral("lastTriggerTime"), toJson(lastTriggerTime)}});
}

void addMonitoringOps(Operations& ops, Session& session)
{
    ops.add(u"GlobalHotkeyManager.dump", {}, [&session] { return dumped(session.hotkey()); });
    ops.add(u"GlobalHotkeyManager.loadCustomHotkey", {},
            [&session] { session.hotkey().loadCustomHotkey(); });
    ops.add(u"GlobalHotkeyManager.checkAndStartMonitoring", {},
            [&session] { session.hotkey().checkAndStartMonitoring(); });
    ops.add(u"GlobalHotkeyManager.requestAccessibilityPermissions", {},
            [&session] { session.hotkey().requestAccessibilityPermissions(); });
    ops.add(u"GlobalHotkeyManager.startMonitoring", {},
            [&session] { session.hotkey().startMonitoring(); });
    ops.add(u"GlobalHotkeyManager.stopMonitoring", {},
            [&session] { session.hotkey().stopMonitoring(); });
    ops.add(u"GlobalHotkeyManager.updateHotkey", {u"keyCode", u"modifiers"},
            [&session](qint64 keyCode, qint64 modifiers) {
                session.hotkey().updateHotkey(keyCode, static_cast<quint64>(modifiers));
            });
}

void addEventOps(Operations& ops, Session& session)
{
    ops.add(u"GlobalHotkeyManager.match", {u"keyCode", u"flags", u"channel"},
            [&session](qint64 keyCode, qint64 flags, const std::optional<QString>& channel) {
                return matched(session.hotkey(), keyCode, flags,
                               channel.value_or(QStringLiteral("cg")));
            });
    ops.add(u"GlobalHotkeyManager.tapEvent", {u"type", u"keyCode", u"flags"},
            [&session](int type, int keyCode, qint64 flags) {
                return session.hotkey().tapCallback(eventOf(type, keyCode, flags));
            });
    ops.add(u"GlobalHotkeyManager.monitorEvent", {u"type", u"keyCode", u"flags"},
            [&session](int type, int keyCode, qint64 flags) {
                session.hotkey().monitorHandler(eventOf(type, keyCode, flags));
            });
    ops.add(u"GlobalHotkeyManager.trigger", {u"times", u"lastTriggerTime"},
            [&session](const QJsonValue& times, std::optional<Clock::TimePoint> last) {
                return triggered(session, times, last);
            });
}

} // namespace

void addHotkeyOps(Operations& ops, Session& session)
{
    ops.add(u"platform.set", {u"accessibilityTrusted", u"eventTapAvailable"},
            [&session](std::optional<bool> trusted, std::optional<bool> tapAvailable) {
                setPlatform(session.platform().hotkeys(), trusted, tapAvailable);
            });
    addMonitoringOps(ops, session);
    addEventOps(ops, session);
}

} // namespace jotwell
