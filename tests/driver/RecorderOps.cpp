#include "driver/Operations.h"

#include "Services/GlobalHotkeyManager.h"
#include "Services/SettingsService.h"
#include "Views/Settings/KeyView.h"
#include "Views/Settings/ShortcutKeys.h"
#include "Views/Settings/ShortcutRecorderView.h"
#include "driver/Session.h"

#include <QJsonArray>

#include <memory>

namespace jotwell {

namespace {

/// A recorder and the values that it is bound to.
class DrivenRecorder {
public:
    explicit DrivenRecorder(Session& session) : m_session(session) {}

    void make(const Hotkey& shortcut)
    {
        m_session.toasts(); // the manager would make them itself
        m_bound = shortcut;
        const RecorderServices services{SettingsService::shared(), GlobalHotkeyManager::shared(),
                                        m_session.platform().platform().scheduler,
                                        m_session.desktop().windows};
        ShortcutBinding binding{[this] { return m_bound; },
                                [this](const Hotkey& saved) { m_bound = saved; }};
        m_view = std::make_unique<ShortcutRecorderView>(std::move(binding), services);
        QObject::connect(m_view.get(), &ShortcutRecorderView::globalHotkeyChanged, m_view.get(),
                         [this] {
                             m_session.effects().recordNotification(
                                 QStringLiteral("GlobalHotkeyChanged"), {}, {});
                         });
    }

    /// Made for the default hotkey if nobody has made one.
    [[nodiscard]] ShortcutRecorderView& view()
    {
        if (!m_view)
            make({11, ModifierBit::command | ModifierBit::option});
        return *m_view;
    }

private:
    Session& m_session;
    Hotkey m_bound;
    std::unique_ptr<ShortcutRecorderView> m_view;
};

Hotkey hotkeyOf(qint64 keyCode, qint64 modifiers)
{
    return {keyCode, static_cast<quint64>(modifiers)};
}

QJsonValue dumped(const ShortcutRecorderView& view)
{
    const auto code = [](const Hotkey& hotkey) { return toJson(hotkey.keyCode); };
    const auto flags = [](const Hotkey& hotkey) {
        return toJson(static_cast<qint64>(hotkey.modifiers));
    };
    return QJsonObject{
        {QStringLiteral("keyCode"), code(view.shortcut())},
        {QStringLiteral("modifierFlags"), flags(view.shortcut())},
        {QStringLiteral("isRecording"), view.isRecording()},
        {QStringLiteral("recordedKeyCode"), code(view.recorded())},
        {QStringLiteral("recordedModifiers"), flags(view.recorded())},
        {QStringLiteral("previousKeyCode"), code(view.previous())},
        {QStringLiteral("previousModifiers"), flags(view.previous())},
        {QStringLiteral("isValid"), isValidShortcut(view.recorded())},
    };
}

QJsonValue sorted(const QSet<QString>& keys)
{
    QStringList all = keys.values();
    all.sort();
    return QJsonArray::fromStringList(all);
}

void addTextOps(Operations& ops)
{
    ops.add(u"ShortcutRecorder.keyString", {u"keyCode"},
            [](qint64 keyCode) { return toJson(keyStringFromKeyCode(keyCode)); });
    ops.add(u"ShortcutRecorder.shortcutString", {u"keyCode", u"modifierFlags"},
            [](qint64 keyCode, qint64 modifierFlags) {
                return shortcutString(hotkeyOf(keyCode, modifierFlags));
            });
    ops.add(u"ShortcutRecorder.shortcutStringToKeys", {u"string"}, [](const QString& string) {
        return QJsonValue(QJsonArray::fromStringList(shortcutStringToKeys(string)));
    });
    ops.add(u"ShortcutRecorder.recordedShortcutKeys", {u"recordedKeyCode", u"recordedModifiers"},
            [](qint64 keyCode, qint64 modifiers) {
                return QJsonValue(
                    QJsonArray::fromStringList(recordedShortcutKeys(hotkeyOf(keyCode, modifiers))));
            });
}

void addStateOps(Operations& ops, Session& session)
{
    const auto recorder = std::make_shared<DrivenRecorder>(session);
    ops.add(u"ShortcutRecorder.new", {u"keyCode", u"modifierFlags"},
            [recorder](qint64 keyCode, qint64 modifierFlags) {
                recorder->make(hotkeyOf(keyCode, modifierFlags));
            });
    ops.add(u"ShortcutRecorder.startRecording", {},
            [recorder] { recorder->view().startRecording(); });
    ops.add(u"ShortcutRecorder.cancelRecording", {},
            [recorder] { recorder->view().cancelRecording(); });
    ops.add(u"ShortcutRecorder.saveShortcut", {}, [recorder] { recorder->view().saveShortcut(); });
    ops.add(u"ShortcutRecorder.event", {u"type", u"keyCode", u"flags"},
            [recorder](int type, int keyCode, qint64 flags) {
                return recorder->view().handleEvent({type, keyCode, static_cast<quint64>(flags)});
            });
    ops.add(u"ShortcutRecorder.dump", {}, [recorder] { return dumped(recorder->view()); });
}

void addKeyOps(Operations& ops, Session& session)
{
    const auto keys = std::make_shared<KeyView>(session.desktop().windows);
    ops.add(u"KeyView.updatePressedKeys", {u"flags", u"keyCode", u"isDown"},
            [keys](qint64 flags, int keyCode, bool isDown) {
                keys->updatePressedKeys(static_cast<quint64>(flags), keyCode, isDown);
                return sorted(keys->pressedKeys());
            });
    ops.add(u"KeyView.flagsChanged", {u"flags"}, [keys](qint64 flags) {
        keys->flagsChanged(static_cast<quint64>(flags));
        return sorted(keys->pressedKeys());
    });
}

} // namespace

void addRecorderOps(Operations& ops, Session& session)
{
    addTextOps(ops);
    addStateOps(ops, session);
    addKeyOps(ops, session);
}

} // namespace jotwell
