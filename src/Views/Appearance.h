#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace jotwell {

class DesktopAppearance;

/// Which of their looks the views have now: light, unless a desktop says otherwise. One for all QML
/// engines; main thread.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY highContrastChanged)

public:
    [[nodiscard]] static Appearance& ofAllViews();
    [[nodiscard]] static Appearance* create(QQmlEngine* qmlEngine, QJSEngine* engine);

    /// Follows `desktop`, which is asked no more once another takes its place; nullptr for none.
    void follow(DesktopAppearance* desktop);

    [[nodiscard]] bool dark() const { return m_isDark; }
    [[nodiscard]] bool highContrast() const { return m_hasHighContrast; }

signals:
    void darkChanged();
    void highContrastChanged();

private:
    Appearance() = default;
    void update();

    DesktopAppearance* m_desktop = nullptr;
    bool m_isDark = false;
    bool m_hasHighContrast = false;
};

} // namespace jotwell
