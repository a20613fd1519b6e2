#include "Platform/NativePlatform.h"

#include "Platform/FileCalls.h"
#include "Platform/FileSystems.h"
#include "Platform/FolderWatch.h"
#include "Platform/HotkeyChannels.h"
#include "Platform/LoginItem.h"
#include "Platform/NativeParts.h"
#include "Platform/Updater.h"
#include "Platform/Workspace.h"
#include "Platform/qt/IniDefaultsStore.h"
#include "Platform/qt/QtScheduler.h"
#include "Platform/qt/SteadyClock.h"
#include "Platform/qt/SystemClock.h"

#include <QThreadPool>

namespace jotwell {

struct NativePlatform::Parts {
    Parts(const QString& settingsFile, const QString& applicationSupport)
        : defaults(settingsFile, *files), platform{clock,      steadyClock, scheduler,
                                                   defaults,   *files,      *fileSystems,
                                                   *folders,   *workspace,  *hotkeys,
                                                   *loginItem, *updater,    background,
                                                   bulk,       database,    applicationSupport}
    {
        database.setMaxThreadCount(1);
    }

    SystemClock clock;
    SteadyClock steadyClock;
    QtScheduler scheduler;
    std::unique_ptr<FileCalls> files = makeFileCalls();
    IniDefaultsStore defaults;
    std::unique_ptr<FileSystems> fileSystems = makeFileSystems();
    std::unique_ptr<FolderWatcher> folders = makeFolderWatcher();
    std::unique_ptr<Workspace> workspace = makeWorkspace();
    std::unique_ptr<HotkeyChannels> hotkeys = makeHotkeyChannels();
    std::unique_ptr<LoginItem> loginItem = makeLoginItem(*files);
    std::unique_ptr<Updater> updater = makeUpdater(clock, scheduler, defaults);
    // The last, so that they go first: their work may use the others.
    QThreadPool database;
    QThreadPool bulk;
    QThreadPool background;

    const Platform platform;
};

NativePlatform::NativePlatform(const QString& settingsFile, const QString& applicationSupport)
    : m_parts(std::make_unique<Parts>(settingsFile, applicationSupport))
{
}

NativePlatform::~NativePlatform() = default;

const Platform& NativePlatform::platform() const
{
    return m_parts->platform;
}

} // namespace jotwell
