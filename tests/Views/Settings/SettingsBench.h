#pragma once

#include "Fakes/FakeFolderPanel.h"
#include "Fakes/FakePlatform.h"
#include "Fakes/FakeWindowSystem.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/LaunchAtLoginManager.h"
#include "Services/SettingsService.h"
#include "Services/SparkleUpdateManager.h"
#include "Services/TagIndexService.h"
#include "Services/TemplateSyncService.h"
#include "Services/ToastManager.h"
#include "Views/Settings/SimpleSettingsView.h"

#include <QObject>
#include <QQuickItem>
#include <QSemaphore>
#include <QTemporaryDir>

namespace jotwell {

/// The settings over real services and a desktop of our own; what QML tests need of it is
/// invokable.
class SettingsBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* view READ view CONSTANT)
    Q_PROPERTY(QObject* recorder READ recorder CONSTANT)
    Q_PROPERTY(bool isTrusted READ isTrusted WRITE setTrusted)
    Q_PROPERTY(bool startsAtLogin READ startsAtLogin)
    Q_PROPERTY(int prompts READ prompts)
    Q_PROPERTY(int backgroundChecks READ backgroundChecks)
    Q_PROPERTY(int hotkeyCode READ hotkeyCode)
    Q_PROPERTY(int hotkeyModifiers READ hotkeyModifiers)
    Q_PROPERTY(QString vaultPath READ vaultPath WRITE setVaultPath)
    Q_PROPERTY(int recentFilesCount READ recentFilesCount WRITE setRecentFilesCount)
    Q_PROPERTY(int builds READ builds)
    Q_PROPERTY(bool asksForFolder READ asksForFolder)

public:
    explicit SettingsBench(QObject* parent = nullptr);
    ~SettingsBench() override;

    QTemporaryDir folder; ///< for vaults
    FakePlatform fake;
    FakeWindowSystem windowSystem;
    ToastManager toasts{fake.scheduler};
    SettingsService settings{fake.defaults, [] { return ObsidianTemplates(); }};
    TagIndexService index{fake.platform};
    TemplateSyncService templates{fake.platform, settings};
    FakeFolderPanel folders;
    QTemporaryDir templatesFolder;
    GlobalHotkeyManager hotkeys{fake.hotkeys, settings, fake.clock, fake.scheduler, toasts};
    LaunchAtLoginManager launchAtLogin{fake.loginItem, fake.defaults, fake.scheduler};
    SparkleUpdateManager updates{fake.updater, fake.workspace, fake.scheduler, toasts};
    SimpleSettingsView settingsView{services(), windowSystem, QStringLiteral("globalHotkey")};

    [[nodiscard]] SettingsServices services()
    {
        return {settings, index,   templates,  hotkeys,       launchAtLogin,
                updates,  folders, fake.clock, fake.scheduler};
    }
    [[nodiscard]] RecorderServices recorderServices()
    {
        return {settings, hotkeys, fake.scheduler, windowSystem};
    }

    [[nodiscard]] QObject* view() { return &settingsView; }
    [[nodiscard]] QObject* recorder() { return settingsView.globalHotkey()->recorder(); }
    [[nodiscard]] bool isTrusted() const { return fake.hotkeys.trusted; }
    void setTrusted(bool isTrusted) { fake.hotkeys.trusted = isTrusted; }
    [[nodiscard]] bool startsAtLogin() const
    {
        return fake.loginItem.state == LoginItem::Status::enabled;
    }
    [[nodiscard]] int prompts() const { return fake.hotkeys.prompts; }
    [[nodiscard]] int backgroundChecks() const { return fake.updater.backgroundChecks; }
    [[nodiscard]] int hotkeyCode() const { return static_cast<int>(settings.globalHotkeyCode()); }
    [[nodiscard]] int hotkeyModifiers() const
    {
        return static_cast<int>(settings.globalHotkeyModifiers());
    }

    /// As stored.
    [[nodiscard]] QString vaultPath() const { return settings.obsidianFolderPath(); }
    void setVaultPath(const QString& path) { settings.setObsidianFolderPath(path); }
    [[nodiscard]] int recentFilesCount() const
    {
        return static_cast<int>(settings.recentFilesCount());
    }
    void setRecentFilesCount(int count) { settings.setRecentFilesCount(count); }
    /// How many have begun.
    [[nodiscard]] int builds() const { return m_builds; }
    [[nodiscard]] bool asksForFolder() const { return folders.isOpen(); }

    /// The path of a folder with that many notes.
    Q_INVOKABLE QString makeVault(const QString& name, int notes);
    /// From now on builds begin, but list nothing.
    Q_INVOKABLE void holdBuilds();
    /// Runs until no build runs any more.
    Q_INVOKABLE void finishBuilds();
    /// In the panel that is open.
    Q_INVOKABLE void answerPanel(const QString& path) { folders.answer(path); }
    Q_INVOKABLE void advance(int milliseconds)
    {
        fake.scheduler.advance(std::chrono::milliseconds(milliseconds));
    }
    /// The desktop has changed its mind by itself.
    Q_INVOKABLE void startAtLogin(bool starts)
    {
        using Status = LoginItem::Status;
        fake.loginItem.state = starts ? Status::enabled : Status::notRegistered;
    }
    Q_INVOKABLE void refuseLoginItem() { fake.loginItem.failure = QStringLiteral("No"); }
    Q_INVOKABLE void findUpdate(const QString& version)
    {
        fake.updater.delegate->didFindValidUpdate({version, std::nullopt});
        advance(0);
    }
    Q_INVOKABLE void setCanCheckForUpdates(bool can)
    {
        fake.updater.canCheck = can;
        fake.updater.delegate->didChangeCanCheckForUpdates();
        advance(0);
    }
    /// A file of the templates folder, which is set and read with it.
    Q_INVOKABLE void putTemplate(const QString& name, const QString& text);
    Q_INVOKABLE void putTemplateUnseen(const QString& name, const QString& text);
    Q_INVOKABLE [[nodiscard]] QString templateText(const QString& name) const;
    Q_INVOKABLE [[nodiscard]] QStringList storedTemplates() const;
    Q_INVOKABLE void storeNoTemplates() { settings.setObsidianTemplates({}); }

    /// A key of that place on the keyboard goes to the window of `item`.
    Q_INVOKABLE static void key(QQuickItem* item, bool isDown, int key, int modifiers, int keyCode);

private:
    QSemaphore m_gate; ///< of held builds
    int m_heldBuilds = 0;
    int m_builds = 0;
};

} // namespace jotwell
