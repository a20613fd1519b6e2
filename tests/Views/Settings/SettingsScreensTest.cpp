#include "Views/Settings/SettingsBench.h"

#include <QAbstractItemModelTester>
#include <QGuiApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::ElementsAre;

// Rows of the sidebar.
const int globalHotkeyRow = SettingsSidebar::rowOf(QStringLiteral("globalHotkey")).value();
const int updatesRow = SettingsSidebar::rowOf(QStringLiteral("softwareUpdates")).value();
const int otherRow = SettingsSidebar::rowOf(QStringLiteral("other")).value();

class SettingsScreensTest : public testing::Test {
protected:
    SettingsBench bench;
    SimpleSettingsView& view = bench.settingsView;
    GlobalHotkeySettingsView& hotkey = *view.globalHotkey();
    UpdateSettingsView& updates = *view.softwareUpdates();
    OtherSettingsView& other = *view.other();
};

QStringList texts(SettingsSidebar::Role role)
{
    const SettingsSidebar sidebar;
    QStringList all;
    for (int row = 0; row < sidebar.rowCount(); ++row)
        all.append(sidebar.index(row).data(role).toString());
    return all;
}

} // namespace

TEST(SettingsSidebar, ListsTheScreensOfBothGroups)
{
    EXPECT_THAT(texts(SettingsSidebar::entryId),
                ElementsAre(QStringLiteral("globalHotkey"), QStringLiteral("obsidianVault"),
                            QStringLiteral("softwareUpdates"), QStringLiteral("other"),
                            QStringLiteral("/new_note"), QStringLiteral("/search_notes"),
                            QStringLiteral("/recent")));
    EXPECT_THAT(texts(SettingsSidebar::title),
                ElementsAre(QStringLiteral("Global Hotkey"), QStringLiteral("Obsidian Vault"),
                            QStringLiteral("Updates"), QStringLiteral("Other"),
                            QStringLiteral("/new_note"), QStringLiteral("/search_notes"),
                            QStringLiteral("/recent")));
}

TEST(SettingsSidebar, ScreensHaveSymbolsAndCommandsTheirIconsAndWords)
{
    EXPECT_THAT(texts(SettingsSidebar::symbol),
                ElementsAre(QStringLiteral("command.circle.fill"),
                            QStringLiteral("folder.circle.fill"),
                            QStringLiteral("arrow.down.circle.fill"),
                            QStringLiteral("gearshape.circle.fill"), row(Command::newNote).icon,
                            row(Command::searchNotes).icon, row(Command::recentNotes).icon));
    EXPECT_THAT(texts(SettingsSidebar::description),
                ElementsAre(QString(), QString(), QString(), QString(),
                            QStringLiteral("Create new note"),
                            QStringLiteral("Search notes in Obsidian"),
                            QStringLiteral("Show recent notes")));
}

TEST(SettingsSidebar, GroupIsWrittenOverItsFirstEntry)
{
    EXPECT_THAT(texts(SettingsSidebar::heading),
                ElementsAre(QStringLiteral("GENERAL"), QString(), QString(), QString(),
                            QStringLiteral("COMMANDS"), QString(), QString()));
}

TEST(SettingsSidebar, IsAModel)
{
    SettingsSidebar sidebar;
    const QAbstractItemModelTester tester(&sidebar,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(sidebar.rowCount(sidebar.index(0)), 0);
    EXPECT_FALSE(sidebar.index(0).data(Qt::DisplayRole).isValid());
    EXPECT_EQ(sidebar.roleNames().size(), 5);
    EXPECT_EQ(SettingsSidebar::rowOf(QStringLiteral("nowhere")), std::nullopt);
}

TEST_F(SettingsScreensTest, BeginsWithTheRequestedEntry)
{
    const SimpleSettingsView asked(bench.services(), bench.windowSystem, QStringLiteral("other"));
    EXPECT_EQ(asked.selectedItem(), QStringLiteral("other"));
    EXPECT_EQ(asked.selectedRow(), otherRow);
}

TEST_F(SettingsScreensTest, BeginsWithTheFirstEntryIfThereIsNoneOfThatId)
{
    const SimpleSettingsView asked(bench.services(), bench.windowSystem, QStringLiteral("/none"));
    EXPECT_EQ(asked.selectedItem(), QStringLiteral("globalHotkey"));
}

TEST_F(SettingsScreensTest, SelectsByRow)
{
    const QSignalSpy changes(&view, &SimpleSettingsView::selectedItemChanged);
    view.select(updatesRow);
    EXPECT_EQ(view.selectedItem(), QStringLiteral("softwareUpdates"));
    for (const int row : {updatesRow, -1, 7})
        view.select(row);
    EXPECT_EQ(view.selectedRow(), updatesRow);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SettingsScreensTest, CommandIsSelectedByItsText)
{
    EXPECT_EQ(view.selectedCommand(), std::nullopt);
    for (const Command command : allCommands) {
        view.select(SettingsSidebar::rowOf(rawValue(command)).value());
        EXPECT_EQ(view.selectedItem(), rawValue(command));
        EXPECT_EQ(view.selectedCommand(), command);
    }
    view.select(otherRow);
    EXPECT_EQ(view.selectedCommand(), std::nullopt);
}

TEST_F(SettingsScreensTest, HotkeyIsReadWhenItsScreenComesOnShow)
{
    EXPECT_EQ(hotkey.customKeyCode(), 11);
    EXPECT_EQ(hotkey.customModifiers(), 1572864);
    view.select(otherRow);
    bench.settings.setGlobalHotkeyCode(40);
    bench.settings.setGlobalHotkeyModifiers(0x20000);
    view.select(globalHotkeyRow);
    EXPECT_EQ(hotkey.customKeyCode(), 40);
    EXPECT_EQ(hotkey.customModifiers(), 0x20000);
    EXPECT_THAT(hotkey.recorder()->keys(), ElementsAre(QStringLiteral("⇧"), QStringLiteral("K")));
}

TEST_F(SettingsScreensTest, HotkeyBelowOneReadsAsTheDefault)
{
    bench.settings.setGlobalHotkeyCode(-3);
    bench.settings.setGlobalHotkeyModifiers(0);
    hotkey.appear();
    EXPECT_EQ(hotkey.customKeyCode(), 11);
    EXPECT_EQ(hotkey.customModifiers(), 1572864);
}

TEST_F(SettingsScreensTest, PermissionIsSeenWithinTwoSeconds)
{
    EXPECT_FALSE(hotkey.hasAccessibilityPermission());
    bench.setTrusted(true);
    bench.advance(1999);
    EXPECT_FALSE(hotkey.hasAccessibilityPermission());
    bench.advance(1);
    EXPECT_TRUE(hotkey.hasAccessibilityPermission());
    bench.setTrusted(false);
    bench.advance(2000);
    EXPECT_FALSE(hotkey.hasAccessibilityPermission());
}

TEST_F(SettingsScreensTest, PermissionIsLookedAtOnlyWhileTheScreenIsShown)
{
    view.select(otherRow);
    bench.setTrusted(true);
    bench.advance(10'000);
    EXPECT_FALSE(hotkey.hasAccessibilityPermission());
    view.select(globalHotkeyRow);
    EXPECT_TRUE(hotkey.hasAccessibilityPermission());
    bench.setTrusted(false);
    bench.advance(2000);
    EXPECT_FALSE(hotkey.hasAccessibilityPermission());
}

TEST_F(SettingsScreensTest, ChecksDoNotMultiplyByComingBack)
{
    for (int visit = 0; visit < 5; ++visit) {
        view.select(otherRow);
        view.select(globalHotkeyRow);
    }
    bench.advance(2000);
    EXPECT_EQ(bench.fake.scheduler.pendingCount(), 1);
}

TEST_F(SettingsScreensTest, PermissionIsAskedForByTheButton)
{
    hotkey.requestAccessibilityPermissions();
    EXPECT_EQ(bench.prompts(), 1);
}

TEST_F(SettingsScreensTest, RecordingEndsWithItsScreen)
{
    ShortcutRecorderView& recorder = *hotkey.recorder();
    recorder.startRecording();
    recorder.handleEvent({KeyEvent::keyDown, 40, 0x100000});
    view.select(otherRow);
    EXPECT_FALSE(recorder.isRecording());
    bench.advance(0);
    EXPECT_EQ(bench.settings.globalHotkeyCode(), 11);
}

TEST_F(SettingsScreensTest, SavedHotkeyIsThatOfTheScreen)
{
    ShortcutRecorderView& recorder = *hotkey.recorder();
    recorder.startRecording();
    recorder.handleEvent({KeyEvent::keyDown, 40, 0x100000});
    recorder.saveShortcut();
    EXPECT_EQ(hotkey.customKeyCode(), 40);
    EXPECT_EQ(hotkey.customModifiers(), 0x100000);
    bench.advance(0);
    EXPECT_EQ(bench.settings.globalHotkeyCode(), 40);
}

TEST_F(SettingsScreensTest, LaunchAtLoginIsWhatTheDesktopSaysWhenTheScreenComesOnShow)
{
    bench.startAtLogin(true);
    EXPECT_FALSE(other.launchAtLogin());
    view.select(otherRow);
    EXPECT_TRUE(other.launchAtLogin());
}

TEST_F(SettingsScreensTest, LaunchAtLoginIsLookedAtWhenTheUserComesBackToTheProgram)
{
    view.select(otherRow);
    const QSignalSpy changes(&other, &OtherSettingsView::launchAtLoginChanged);
    bench.startAtLogin(true);
    emit qApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_FALSE(other.launchAtLogin());
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_TRUE(other.launchAtLogin());
    EXPECT_EQ(changes.size(), 1);
    view.select(updatesRow);
    bench.startAtLogin(false);
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_TRUE(other.launchAtLogin());
}

TEST_F(SettingsScreensTest, LaunchAtLoginIsSwitchedAtOnce)
{
    other.setLaunchAtLogin(true);
    EXPECT_TRUE(bench.startsAtLogin());
    other.setLaunchAtLogin(false);
    EXPECT_FALSE(bench.startsAtLogin());
}

TEST_F(SettingsScreensTest, UpdatesShowWhatTheManagerKnows)
{
    QSignalSpy changes(&updates, &UpdateSettingsView::changed);
    EXPECT_FALSE(updates.updateAvailable());
    EXPECT_EQ(updates.latestVersion(), QString());
    bench.findUpdate(QStringLiteral("2.1"));
    EXPECT_TRUE(updates.updateAvailable());
    EXPECT_EQ(updates.latestVersion(), QStringLiteral("2.1"));
    EXPECT_GT(changes.size(), 0);
    changes.clear();
    bench.findUpdate(QStringLiteral("2.2"));
    EXPECT_EQ(changes.size(), 1) << "another version alone";
    updates.checkForUpdatesInBackground();
    EXPECT_EQ(bench.backgroundChecks(), 1);
    EXPECT_FALSE(updates.updateAvailable());
}

TEST_F(SettingsScreensTest, UpdatesTellOfEachChange)
{
    QSignalSpy changes(&updates, &UpdateSettingsView::changed);
    bench.setCanCheckForUpdates(false);
    EXPECT_FALSE(updates.canCheckForUpdates());
    EXPECT_EQ(changes.size(), 1);
    updates.setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(bench.fake.updater.checksAutomatically);
    EXPECT_EQ(changes.size(), 2);
    updates.setAutomaticallyDownloadsUpdates(false);
    EXPECT_FALSE(bench.fake.updater.downloadsAutomatically);
    EXPECT_EQ(changes.size(), 3);
}

TEST_F(SettingsScreensTest, ChecksThatAreSwitchedOffLeaveTheDownloadsAsTheyAre)
{
    updates.setAutomaticallyChecksForUpdates(false);
    EXPECT_TRUE(updates.automaticallyDownloadsUpdates());
    EXPECT_TRUE(bench.fake.updater.downloadsAutomatically);
}
