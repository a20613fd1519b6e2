#pragma once

#include "Platform/HotkeyChannels.h"
#include "Platform/linux/ApplicationScope.h"
#include "Platform/linux/PortalRequest.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <optional>

class QDBusObjectPath;

namespace jotwell {

class PortalPermission;

/// Has the desktop's portal tell when one shortcut is pressed. The user may be asked by the desktop
/// and may have chosen another key there; a desktop that knows the shortcut isn't told to show it
/// again. The bus is never waited for; a portal that isn't there, refuses or never answers means
/// that nothing is heard, and one that comes back is asked again. Main thread.
class PortalShortcuts : public QObject {
    Q_OBJECT

public:
    explicit PortalShortcuts(PortalPermission& permission,
                             const ApplicationScope::Conditions& scope = {});
    ~PortalShortcuts() override;

    /// Asks the user, unless the desktop has given us this shortcut already. Calls `cannotAsk` once
    /// if there is no portal that would, or it fails.
    void ask(const Hotkey& hotkey, std::function<void()> cannotAsk = {});

    /// Asks for the shortcut if that isn't under way, and calls `handler` at each press for as long
    /// as the channel lives; null without a bus. One at a time.
    [[nodiscard]] std::unique_ptr<HotkeyChannel> listen(const Hotkey& hotkey,
                                                        HotkeyChannels::MonitorHandler handler);

private:
    enum class State { idle, asking, bound, denied, lost };
    enum class Wish { ofUser, ofProgram };
    class Listener;

    void begin(const Hotkey& hotkey, Wish wish);
    void end();
    QString forgetSession();
    void enterScope();
    void introduceProgram();
    void createSession();
    void takeSession(PortalRequest::Outcome outcome, const QVariantMap& results);
    void bind();
    void tellThatItCannotAsk();
    void takeBinding(PortalRequest::Outcome outcome, const QVariantMap& results);
    void lose();
    void portalChanged(const QString& oldOwner, const QString& newOwner);
    [[nodiscard]] QString nextToken();
    [[nodiscard]] QString shortcutId() const;
    [[nodiscard]] QVariant shortcuts() const;

    PortalPermission& m_permission;
    QDBusConnection m_bus;
    QDBusConnection m_portal; ///< another one for each session
    HotkeyChannels::MonitorHandler m_handler;
    std::function<void()> m_cannotAsk;
    State m_state = State::idle;
    Wish m_wish = Wish::ofProgram; ///< whose it was to begin
    Hotkey m_hotkey;
    QString m_session; ///< the path of its object; empty if there is none
    ApplicationScope m_scope;
    std::unique_ptr<QObject> m_introduction; ///< what comes of it is dropped with this
    PortalRequestPointer m_request;
    int m_tokens = 0;

private slots:
    void activated(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
                   const QVariantMap& options);
    void sessionClosed();
};

} // namespace jotwell
