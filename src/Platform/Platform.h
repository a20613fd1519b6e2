#pragma once

class QThreadPool;

namespace jotwell {

class Clock;
class DefaultsStore;
class FileCalls;
class FolderWatcher;
class Scheduler;
class Workspace;

/// The edge of the process as the services see it. Whoever starts the program makes the parts,
/// keeps them alive longer than every service, and may put others in their place.
struct Platform {
    Clock& clock;
    Scheduler& scheduler;
    DefaultsStore& defaults;
    FileCalls& files;
    FolderWatcher& folders;
    Workspace& workspace;
    QThreadPool& background; ///< where work runs that must not hold the main thread
};

} // namespace jotwell
