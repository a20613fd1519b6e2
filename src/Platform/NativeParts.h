#pragma once

#include <QIcon>
#include <QString>

#include <memory>

namespace jotwell {

class Clock;
class DefaultsStore;
class DesktopAppearance;
class FileCalls;
class FileSystems;
class FolderPanel;
class FolderWatcher;
class HotkeyChannels;
class InstanceDoor;
class KeyNames;
class LoginItem;
class Scheduler;
class StatusItem;
class TerminationSignals;
class Updater;
class WindowSystem;
class Workspace;

// The parts of the platform as the running system has them, for whoever starts the program. Only
// the door and the file calls may be made before the QApplication.

[[nodiscard]] std::unique_ptr<InstanceDoor> makeInstanceDoor();
[[nodiscard]] std::unique_ptr<FileCalls> makeFileCalls();
[[nodiscard]] std::unique_ptr<FileSystems> makeFileSystems();
[[nodiscard]] std::unique_ptr<FolderWatcher> makeFolderWatcher();
[[nodiscard]] std::unique_ptr<Workspace> makeWorkspace();
[[nodiscard]] std::unique_ptr<HotkeyChannels> makeHotkeyChannels();
[[nodiscard]] std::unique_ptr<LoginItem> makeLoginItem(FileCalls& files);
/// What is named here outlives the updater.
[[nodiscard]] std::unique_ptr<Updater> makeUpdater(const Clock& clock, Scheduler& scheduler,
                                                   DefaultsStore& defaults);
[[nodiscard]] std::unique_ptr<FolderPanel> makeFolderPanel();
[[nodiscard]] std::unique_ptr<WindowSystem> makeWindowSystem();
[[nodiscard]] std::unique_ptr<TerminationSignals> makeTerminationSignals();
[[nodiscard]] std::unique_ptr<DesktopAppearance> makeDesktopAppearance();
[[nodiscard]] std::unique_ptr<KeyNames> makeKeyNames();
/// `description` is what the item is called to those who can't see its icon.
[[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(const QIcon& icon,
                                                         const QString& description);

} // namespace jotwell
