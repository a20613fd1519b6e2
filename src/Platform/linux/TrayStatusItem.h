#pragma once

#include "Platform/StatusItem.h"

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QIcon>
#include <QObject>

#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace jotwell {

/// An icon in the desktop's tray, be it one of status notifiers on the bus or an X11 one. It is
/// made only once such a tray is there: Qt decides at the first icon of a process, for good, which
/// kind of tray there is. The bus is only ever asked without waiting for the answer.
class TrayStatusItem : public QObject, public StatusItem, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// `description` is what the icon is called to those who can't see it.
    TrayStatusItem(QIcon icon, QString description);
    ~TrayStatusItem() override;

    void setMenu(std::vector<MenuEntry> entries) override;
    void setAction(std::function<void()> action) override;

    /// Whether a tray was found and the icon made.
    [[nodiscard]] bool isShown() const { return m_trayIcon != nullptr; }

private:
    void askForNotifierHost();
    void makeIconIfThereIsATray(bool hasNotifierHost);
    void makeIcon();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    const QIcon m_icon;
    const QString m_description;
    QDBusConnection m_bus;
    std::function<void()> m_action;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
    unsigned int m_managerAtom = 0;
    unsigned int m_trayAtom = 0;

private slots:
    void notifierHostRegistered();
};

} // namespace jotwell
