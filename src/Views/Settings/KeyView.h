#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

class QKeyEvent;

namespace jotwell {

class WindowSystem;

/// Which keys of a hotkey are held, as far as they are modifiers or Space. Hears of the keys of the
/// windows on which it is installed as an event filter, and takes none away. Main thread.
class KeyView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(KeyViewState)
    QML_UNCREATABLE("belongs to the screen of the global hotkey")

    Q_PROPERTY(QStringList pressedKeys READ pressedKeyList NOTIFY pressedKeysChanged)

public:
    explicit KeyView(const WindowSystem& windowSystem, QObject* parent = nullptr);

    /// "⌃", "⌥", "⌘", "⇧", "Space".
    [[nodiscard]] const QSet<QString>& pressedKeys() const { return m_pressedKeys; }

    void keyDown(int keyCode, quint64 flags) { updatePressedKeys(flags, keyCode, true); }
    void keyUp(int keyCode, quint64 flags) { updatePressedKeys(flags, keyCode, false); }
    void flagsChanged(quint64 flags);
    void updatePressedKeys(quint64 flags, int keyCode, bool isDown);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void pressedKeysChanged();

private:
    [[nodiscard]] QStringList pressedKeyList() const { return m_pressedKeys.values(); }
    void setPressedKeys(const QSet<QString>& keys);
    void hear(const QKeyEvent& event);

    const WindowSystem& m_windowSystem;
    QSet<QString> m_pressedKeys;
};

} // namespace jotwell
