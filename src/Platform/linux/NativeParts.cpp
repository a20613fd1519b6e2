#include "Platform/NativeParts.h"

#include "Platform/linux/DBusInstanceDoor.h"
#include "Platform/linux/InotifyFolderWatcher.h"
#include "Platform/linux/LinuxFileSystems.h"
#include "Platform/linux/LinuxHotkeyChannels.h"
#include "Platform/linux/PcKeyNames.h"
#include "Platform/linux/PortalAppearance.h"
#include "Platform/linux/PosixFileCalls.h"
#include "Platform/linux/TrayStatusItem.h"
#include "Platform/linux/UnixTerminationSignals.h"
#include "Platform/linux/XcbWindowSystem.h"
#include "Platform/linux/XdgWorkspace.h"
#include "Platform/none/NoLoginItem.h"
#include "Platform/none/NoUpdater.h"

namespace jotwell {

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

std::unique_ptr<LoginItem> makeLoginItem()
{
    return std::make_unique<NoLoginItem>();
}

std::unique_ptr<Updater> makeUpdater()
{
    return std::make_unique<NoUpdater>();
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
