#pragma once

#include "Fakes/FailingFileCalls.h"
#include "Fakes/FakeClock.h"
#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeFileSystems.h"
#include "Fakes/FakeFolderWatcher.h"
#include "Fakes/FakeHotkeyChannels.h"
#include "Fakes/FakeLoginItem.h"
#include "Fakes/FakeScheduler.h"
#include "Fakes/FakeUpdater.h"
#include "Fakes/FakeWorkspace.h"
#include "Platform/Platform.h"

#include <QTemporaryDir>
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
    FakeFileSystems fileSystems;
    FakeHotkeyChannels hotkeys;
    FakeLoginItem loginItem;
    FakeUpdater updater;
    QTemporaryDir applicationSupport;
    QThreadPool database;
    QThreadPool bulk;
    QThreadPool background;

    FakePlatform() { database.setMaxThreadCount(1); }

    const Platform platform{
        clock,       clock,      scheduler, defaults, files,
        fileSystems, folders,    workspace, hotkeys,  loginItem,
        updater,     background, bulk,      database, applicationSupport.path()};
};

} // namespace jotwell
