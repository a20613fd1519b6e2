#pragma once

#include "Views/Settings/SettingsScreen.h"

#include <QtQml/qqmlregistration.h>

namespace jotwell {

class LaunchAtLoginManager;

/// The screen of what belongs nowhere else: the launch at login, as the desktop has it whenever the
/// user comes to the screen or back to the program. Main thread; the manager outlives it.
class OtherSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(OtherSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(
        bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)

public:
    explicit OtherSettingsView(LaunchAtLoginManager& launchAtLoginManager,
                               QObject* parent = nullptr);

    [[nodiscard]] bool launchAtLogin() const;
    void setLaunchAtLogin(bool launchAtLogin);

    void appear() override;
    void disappear() override;

signals:
    void launchAtLoginChanged();

private:
    void checkWhenActive(Qt::ApplicationState state);

    LaunchAtLoginManager& m_launchAtLoginManager;
};

} // namespace jotwell
