#include "Platform/NativeParts.h"

#include "Platform/BuildSettings.h"
#include "Platform/linux/DBusInstanceDoor.h"
#include "Platform/linux/InotifyFolderWatcher.h"
#include "Platform/linux/LinuxFileSystems.h"
#include "Platform/linux/LinuxHotkeyChannels.h"
#include "Platform/linux/PcKeyNames.h"
#include "Platform/linux/PortalAppearance.h"
#include "Platform/linux/PortalFolderPanel.h"
#include "Platform/linux/PortalLoginItem.h"
#include "Platform/linux/PosixFileCalls.h"
#include "Platform/linux/StateFolder.h"
#include "Platform/linux/TrayStatusItem.h"
#include "Platform/linux/UnixTerminationSignals.h"
#include "Platform/linux/XcbWindowSystem.h"
#include "Platform/linux/XdgLoginItem.h"
#include "Platform/linux/XdgWorkspace.h"
#include "Platform/none/NoUpdater.h"
#include "Platform/qt/QtFolderPanel.h"
#include "Platform/qt/Updates/Appcast.h"
#include "Platform/qt/Updates/FeedUpdater.h"

#include <QFile>

namespace jotwell {

namespace {

bool isInSandbox()
{
    return QFile::exists(QStringLiteral("/.flatpak-info"));
}

} // namespace

std::unique_ptr<InstanceDoor> makeInstanceDoor()
{
    return std::make_unique<DBusInstanceDoor>();
}

std::unique_ptr<FileCalls> makeFileCalls()
{
    return std::make_unique<PosixFileCalls>();
}

std::unique_ptr<FileSystems> makeFileSystems()
{
    return std::make_unique<LinuxFileSystems>();
}

std::unique_ptr<FolderWatcher> makeFolderWatcher()
{
    return std::make_unique<InotifyFolderWatcher>();
}

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<XdgWorkspace>();
}

std::unique_ptr<HotkeyChannels> makeHotkeyChannels()
{
    return std::make_unique<LinuxHotkeyChannels>();
}

std::unique_ptr<LoginItem> makeLoginItem(FileCalls& files)
{
    // From inside of a sandbox the user's autostart folder is out of reach.
    if (isInSandbox())
        return std::make_unique<PortalLoginItem>(stateFile(QStringLiteral("LoginItem")), files);
    return std::make_unique<XdgLoginItem>(AutostartFolders::ofEnvironment(), startedProgram(),
                                          files);
}

std::unique_ptr<Updater> makeUpdater(const Clock& clock, Scheduler& scheduler,
                                     DefaultsStore& defaults)
{
    const auto key =
        FeedKey::fromBase64(QByteArray(build::updateKey.data(), build::updateKey.size()));
    if (!key || isInSandbox()) // a sandbox is kept up to date from outside
        return std::make_unique<NoUpdater>();
    return std::make_unique<FeedUpdater>(
        FeedRules{*key, versionNumber(build::version), QStringLiteral("linux")}, clock, scheduler,
        defaults);
}

std::unique_ptr<FolderPanel> makeFolderPanel()
{
    return std::make_unique<PortalFolderPanel>(std::make_unique<QtFolderPanel>());
}

std::unique_ptr<WindowSystem> makeWindowSystem()
{
    return std::make_unique<XcbWindowSystem>();
}

std::unique_ptr<TerminationSignals> makeTerminationSignals()
{
    return std::make_unique<UnixTerminationSignals>();
}

std::unique_ptr<DesktopAppearance> makeDesktopAppearance()
{
    return std::make_unique<PortalAppearance>();
}

std::unique_ptr<KeyNames> makeKeyNames()
{
    return std::make_unique<PcKeyNames>();
}

std::unique_ptr<StatusItem> makeStatusItem(const QIcon& icon, const QString& description)
{
    return std::make_unique<TrayStatusItem>(icon, description);
}

} // namespace jotwell
