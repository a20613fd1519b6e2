#pragma once

#include "Platform/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QVariantMap>

namespace jotwell {

/// The settings portal's colour scheme and contrast. Where the user has no preference, or as long
/// as no portal has told one, the palette's window colour decides. The bus is only ever asked
/// without waiting for the answer.
class PortalAppearance : public QObject, public DesktopAppearance {
    Q_OBJECT

public:
    PortalAppearance();

    [[nodiscard]] bool isDark() const override { return m_isDark; }
    [[nodiscard]] bool hasHighContrast() const override { return m_hasHighContrast; }
    void setChanged(std::function<void()> changed) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class ColorScheme { noPreference, dark, light };

    void ask();
    void takeOver(const QMap<QString, QVariantMap>& settings);
    void takeOver(const QString& group, const QString& key, const QVariant& value);
    [[nodiscard]] bool wantsDark() const;
    void update();

    QDBusConnection m_bus;
    std::function<void()> m_changed;
    ColorScheme m_colorScheme = ColorScheme::noPreference;
    bool m_wantsContrast = false;           ///< by the setting of all desktops
    bool m_wantsAccessibleContrast = false; ///< by GNOME's setting
    bool m_isDark = false;
    bool m_hasHighContrast = false;

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

} // namespace jotwell
