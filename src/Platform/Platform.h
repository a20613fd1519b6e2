#pragma once

#include <QString>

class QThreadPool;

namespace jotwell {

class Clock;
class DefaultsStore;
class FileCalls;
class FileSystems;
class FolderWatcher;
class HotkeyChannels;
class LoginItem;
class Scheduler;
class Updater;
class Workspace;

/// The edge of the process as the services see it. Whoever starts the program makes the parts,
/// keeps them alive longer than every service, and may put others in their place.
struct Platform {
    Clock& clock;
    Clock& steadyClock; ///< for how long ago something was
    Scheduler& scheduler;
    DefaultsStore& defaults;
    FileCalls& files;
    FileSystems& fileSystems;
    FolderWatcher& folders;
    Workspace& workspace;
    HotkeyChannels& hotkeys;
    LoginItem& loginItem;
    Updater& updater;
    QThreadPool& background;    ///< for work that the user waits for and the main thread mustn't do
    QThreadPool& bulk;          ///< for the reading of whole vaults, which nobody is to wait behind
    QThreadPool& database;      ///< one thread, for statements one after another
    QString applicationSupport; ///< the folder for what the program keeps for itself
};

} // namespace jotwell
