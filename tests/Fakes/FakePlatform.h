#pragma once

#include "Fakes/FailingFileCalls.h"
#include "Fakes/FakeClock.h"
#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeFolderWatcher.h"
#include "Fakes/FakeScheduler.h"
#include "Fakes/FakeWorkspace.h"
#include "Platform/Platform.h"

#include <QThreadPool>

namespace jotwell {

/// The whole edge of the process for a test: real files and threads, everything else faked.
struct FakePlatform {
    FakeClock clock;
    FakeScheduler scheduler;
    FakeDefaultsStore defaults;
    FailingFileCalls files;
    FakeFolderWatcher folders;
    FakeWorkspace workspace;
    QThreadPool background;

    const Platform platform{clock, scheduler, defaults, files, folders, workspace, background};
};

} // namespace jotwell
