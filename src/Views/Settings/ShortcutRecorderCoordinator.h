#pragma once

#include <QObject>

namespace jotwell {

class ShortcutRecorderView;
class WindowSystem;

/// The monitor of a recorder: sees the keys that go to the program's windows before the windows do,
/// and takes those that are recorded. Watches as long as it lives. Main thread.
class ShortcutRecorderCoordinator : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    ShortcutRecorderCoordinator(ShortcutRecorderView& recorder, const WindowSystem& windowSystem);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ShortcutRecorderView& m_recorder;
    const WindowSystem& m_windowSystem;
};

} // namespace jotwell
