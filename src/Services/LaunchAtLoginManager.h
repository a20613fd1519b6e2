#pragma once

#include <QObject>

namespace jotwell {

class DefaultsStore;
class LoginItem;
class Scheduler;

/// One switch, in step with the desktop's registration of the program as one to start at login.
/// The desktop has the say; the setting "LaunchAtLogin" only records the last wish that it took.
/// Main thread only; lives as long as the program.
class LaunchAtLoginManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setIsEnabled NOTIFY isEnabledChanged)

public:
    LaunchAtLoginManager(LoginItem& loginItem, DefaultsStore& defaults, Scheduler& scheduler);
    [[nodiscard]] static LaunchAtLoginManager& shared();

    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }
    /// Another value than before is a wish to the desktop. If that fails, or isn't approved, the
    /// switch jumps back by itself.
    void setIsEnabled(bool isEnabled);

    /// Takes over what the desktop says.
    void checkCurrentStatus();
    void syncWithSystemSettings();

signals:
    void isEnabledChanged();

private:
    void updateLaunchAtLogin(bool wish);
    void recordSuccess(bool wish);
    void undo(bool wish, const QString& reason);

    LoginItem& m_loginItem;
    DefaultsStore& m_defaults;
    Scheduler& m_scheduler;
    bool m_isEnabled = false;
};

} // namespace jotwell
