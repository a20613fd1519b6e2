#include "Services/SharedServices.h"

#include "Platform/Platform.h"
#include "Services/CommandService.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/Input/InputServices.h"
#include "Services/LaunchAtLoginManager.h"
#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/SparkleUpdateManager.h"
#include "Services/TagIndexService.h"
#include "Services/TemplateSyncService.h"
#include "Services/ToastManager.h"

#include <memory>

// The wiring of the program: which service is made of which others. Each is made on first use and
// lives until `releaseSharedServices`.

namespace jotwell {

namespace {

struct SharedServices {
    const Platform* platform = nullptr;
    std::unique_ptr<ToastManager> toastManager;
    std::unique_ptr<SettingsService> settings;
    std::unique_ptr<TemplateSyncService> templateSync;
    std::unique_ptr<TagIndexService> tagIndex;
    std::unique_ptr<ObsidianService> obsidian;
    std::unique_ptr<CommandService> command;
    std::unique_ptr<GlobalHotkeyManager> globalHotkey;
    std::unique_ptr<LaunchAtLoginManager> launchAtLogin;
    std::unique_ptr<SparkleUpdateManager> updates;
};

SharedServices& services()
{
    static SharedServices all;
    return all;
}

} // namespace

void installPlatform(const Platform& platform)
{
    services().platform = &platform;
}

void releaseSharedServices()
{
    SharedServices& all = services();
    all.globalHotkey.reset();
    all.launchAtLogin.reset();
    all.updates.reset();
    all.command.reset();
    all.obsidian.reset();
    all.tagIndex.reset();
    all.templateSync.reset();
    all.settings.reset();
    all.toastManager.reset();
}

ToastManager& ToastManager::shared()
{
    SharedServices& all = services();
    if (!all.toastManager)
        all.toastManager = std::make_unique<ToastManager>(all.platform->scheduler);
    return *all.toastManager;
}

SettingsService& SettingsService::shared()
{
    SharedServices& all = services();
    if (!all.settings) {
        // The settings list synced templates, and those ask the settings for their folder.
        all.settings = std::make_unique<SettingsService>(
            all.platform->defaults, [] { return TemplateSyncService::shared().syncedTemplates(); });
    }
    return *all.settings;
}

TemplateSyncService& TemplateSyncService::shared()
{
    SharedServices& all = services();
    if (!all.templateSync)
        all.templateSync =
            std::make_unique<TemplateSyncService>(*all.platform, SettingsService::shared());
    return *all.templateSync;
}

TagIndexService& TagIndexService::shared()
{
    SharedServices& all = services();
    if (!all.tagIndex)
        all.tagIndex = std::make_unique<TagIndexService>(*all.platform);
    return *all.tagIndex;
}

ObsidianService& ObsidianService::shared()
{
    SharedServices& all = services();
    if (!all.obsidian)
        all.obsidian =
            std::make_unique<ObsidianService>(*all.platform, SettingsService::shared(),
                                              ToastManager::shared(), TagIndexService::shared());
    return *all.obsidian;
}

CommandService& CommandService::shared()
{
    SharedServices& all = services();
    if (!all.command)
        all.command =
            std::make_unique<CommandService>(ObsidianService::shared(), SettingsService::shared(),
                                             ToastManager::shared(), all.platform->background);
    return *all.command;
}

GlobalHotkeyManager& GlobalHotkeyManager::shared()
{
    SharedServices& all = services();
    if (!all.globalHotkey)
        all.globalHotkey = std::make_unique<GlobalHotkeyManager>(
            all.platform->hotkeys, SettingsService::shared(), all.platform->steadyClock,
            all.platform->scheduler, ToastManager::shared());
    return *all.globalHotkey;
}

LaunchAtLoginManager& LaunchAtLoginManager::shared()
{
    SharedServices& all = services();
    if (!all.launchAtLogin)
        all.launchAtLogin = std::make_unique<LaunchAtLoginManager>(
            all.platform->loginItem, all.platform->defaults, all.platform->scheduler);
    return *all.launchAtLogin;
}

SparkleUpdateManager& SparkleUpdateManager::shared()
{
    SharedServices& all = services();
    if (!all.updates)
        all.updates =
            std::make_unique<SparkleUpdateManager>(all.platform->updater, all.platform->workspace,
                                                   all.platform->scheduler, ToastManager::shared());
    return *all.updates;
}

InputServices InputServices::shared(Scheduler& scheduler)
{
    return {CommandService::shared(),  SettingsService::shared(),     ObsidianService::shared(),
            TagIndexService::shared(), TemplateSyncService::shared(), scheduler};
}

} // namespace jotwell
