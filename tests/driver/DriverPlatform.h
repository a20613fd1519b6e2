#pragma once

#include "Fakes/FakeHotkeyChannels.h"
#include "Fakes/FakeUpdater.h"
#include "Platform/Clock.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "Platform/linux/InotifyFolderWatcher.h"
#include "Platform/linux/LinuxFileSystems.h"
#include "Platform/linux/PosixFileCalls.h"
#include "Platform/linux/XdgLoginItem.h"
#include "Platform/qt/IniDefaultsStore.h"
#include "driver/ObservedScheduler.h"

#include <QMutex>
#include <QThreadPool>

#include <optional>

namespace jotwell {

class EffectRecorder;

/// The machine's clock, which a script can stop at a time or put forward. Any thread.
class ScriptedClock : public Clock {
public:
    [[nodiscard]] TimePoint now() const override;

    /// Stops the clock; without a time it is the machine's again.
    void stopAt(std::optional<TimePoint> time);
    /// A stopped clock is stopped later, a running one runs ahead of the machine's.
    void advance(TimePoint::duration by);
    /// Stands at `time`, whatever else it was told, until it is let go.
    void holdAt(std::optional<TimePoint> time);

private:
    mutable QMutex m_mutex;
    std::optional<TimePoint> m_held;
    std::optional<TimePoint> m_stopped;
    TimePoint::duration m_ahead{0};
};

/// A desktop that notes down what it is handed.
class RecordingWorkspace : public Workspace {
public:
    explicit RecordingWorkspace(EffectRecorder& effects) : m_effects(effects) {}
    void openUrl(const QString& url) override;

private:
    EffectRecorder& m_effects;
};

/// The edge of the process: all real, but that what is stored lies below one home folder and that
/// nothing is handed to the desktop.
class DriverPlatform {
public:
    DriverPlatform(const QString& home, EffectRecorder& effects);

    [[nodiscard]] const Platform& platform() const { return m_platform; }
    [[nodiscard]] ScriptedClock& clock() { return m_clock; }
    [[nodiscard]] DefaultsStore& defaults() { return m_defaults; }
    [[nodiscard]] FakeHotkeyChannels& hotkeys() { return m_hotkeys; }
    /// Whether a thread is at work or a task asleep.
    [[nodiscard]] bool isWorking() const;
    /// Waits for the database's thread.
    void finishDatabaseWork() { m_database.waitForDone(); }

    [[nodiscard]] const QString& home() const { return m_home; }
    [[nodiscard]] QString databasePath() const;

private:
    const QString m_home;
    ScriptedClock m_clock;
    ObservedScheduler m_scheduler;
    PosixFileCalls m_files;
    InotifyFolderWatcher m_folders;
    IniDefaultsStore m_defaults;
    RecordingWorkspace m_workspace;
    LinuxFileSystems m_fileSystems;
    FakeHotkeyChannels m_hotkeys;
    XdgLoginItem m_loginItem;
    FakeUpdater m_updater;
    QThreadPool m_database;
    QThreadPool m_bulk;
    QThreadPool m_background;
    const Platform m_platform;
};

} // namespace jotwell
