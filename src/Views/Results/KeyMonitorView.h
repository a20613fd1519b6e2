#pragma once

#include <QObject>
#include <QSet>
#include <QString>

namespace jotwell {

class Scheduler;

/// Watches the keyboard of the program's own windows for the keys that the panel's hints name, and
/// takes none away. Main thread; the scheduler outlives it.
class KeyMonitorView : public QObject {
    Q_OBJECT

public:
    // By position, as on every keyboard.
    enum KeyCode { enterKey = 36, tabKey = 48, downKey = 125, upKey = 126 };

    /// Hears of each key from now on; what is held down by then it doesn't know of.
    explicit KeyMonitorView(Scheduler& scheduler, QObject* parent = nullptr);

    /// "Enter", "Tab", "↓", "↑"; those seen going down and not yet up.
    [[nodiscard]] const QSet<QString>& currentPressedKeys() const { return m_currentPressedKeys; }
    /// The same, as of the last turn of the event loop.
    [[nodiscard]] const QSet<QString>& pressedKeys() const { return m_pressedKeys; }

    void handleKeyDown(int keyCode);
    void handleKeyUp(int keyCode);
    void flagsChanged();

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void pressedKeysChanged();

private:
    void updatePressedKeysState();

    Scheduler& m_scheduler;
    QSet<QString> m_currentPressedKeys;
    QSet<QString> m_pressedKeys;
};

} // namespace jotwell
