#include "Platform/NativePlatform.h"

#include "Platform/FileCalls.h"
#include "Platform/FolderWatch.h"
#include "Platform/NativeParts.h"
#include "Platform/Workspace.h"
#include "Platform/qt/IniDefaultsStore.h"
#include "Platform/qt/QtScheduler.h"
#include "Platform/qt/SystemClock.h"

#include <QThreadPool>

namespace jotwell {

struct NativePlatform::Parts {
    explicit Parts(const QString& settingsFile) : defaults(settingsFile, *files) {}

    SystemClock clock;
    QtScheduler scheduler;
    std::unique_ptr<FileCalls> files = makeFileCalls();
    std::unique_ptr<FolderWatcher> folders = makeFolderWatcher();
    std::unique_ptr<Workspace> workspace = makeWorkspace();
    IniDefaultsStore defaults;
    QThreadPool background; // the last, so that it goes first: its work may use the others

    const Platform platform{clock, scheduler, defaults, *files, *folders, *workspace, background};
};

NativePlatform::NativePlatform(const QString& settingsFile)
    : m_parts(std::make_unique<Parts>(settingsFile))
{
}

NativePlatform::~NativePlatform() = default;

const Platform& NativePlatform::platform() const
{
    return m_parts->platform;
}

} // namespace jotwell
