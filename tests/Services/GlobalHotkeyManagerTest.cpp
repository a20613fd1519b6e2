#include "Services/GlobalHotkeyManager.h"

#include "Services/HotkeyFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString code = QStringLiteral("GlobalHotkeyCode");
const QString modifiers = QStringLiteral("GlobalHotkeyModifiers");
const QString loadedDefault =
    QStringLiteral("[GlobalHotkeyManager] Loaded settings - keyCode: 11, modifiers: 1572864");

TEST_F(GlobalHotkeyManagerTest, WithoutPermissionItStartsIdleAndSaysNothingOfIt)
{
    make();
    EXPECT_THAT(takeLines(), ElementsAre(loadedDefault));
    EXPECT_FALSE(manager->isEnabled());
    EXPECT_FALSE(manager->hasEventTap());
    EXPECT_FALSE(manager->hasEventMonitor());
    EXPECT_FALSE(manager->lastPermissionStatus());
    EXPECT_FALSE(manager->hasPermissionPollingTimer());
    EXPECT_EQ(channels.prompts, 0);
    channels.trusted = true;
    scheduler.advance(1h);
    EXPECT_FALSE(manager->isEnabled()) << "nobody looks again unless asked to";
}

TEST_F(GlobalHotkeyManagerTest, WithPermissionItListensThroughBothChannels)
{
    channels.trusted = true;
    make();
    EXPECT_THAT(
        takeLines(),
        ElementsAre(
            loadedDefault, line(u"Accessibility permissions granted"_qs),
            line(u"CGEvent tap monitoring started (keyDown + flagsChanged)"_qs),
            line(u"NSEvent global monitoring started (keyDown + flagsChanged)"_qs),
            line(u"Using dual monitoring (CGEvent + NSEvent) for maximum compatibility"_qs)));
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_TRUE(manager->hasEventTap());
    EXPECT_TRUE(manager->hasEventMonitor());
    EXPECT_TRUE(manager->lastPermissionStatus());
    EXPECT_EQ(channels.tapped, (Hotkey{keyB, commandOption}));
    EXPECT_EQ(channels.watched, (Hotkey{keyB, commandOption}));
    EXPECT_THAT(shown.shown, IsEmpty());
}

TEST_F(GlobalHotkeyManagerTest, WithoutATapTheMonitorCarriesOnAlone)
{
    channels.tapAvailable = false;
    channels.trusted = true;
    make();
    EXPECT_THAT(takeLines(),
                ElementsAre(loadedDefault, line(u"Accessibility permissions granted"_qs),
                            line(u"Failed to create CGEvent tap"_qs),
                            line(u"NSEvent global monitoring started (keyDown + flagsChanged)"_qs),
                            line(u"Using NSEvent monitoring only"_qs)));
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_FALSE(manager->hasEventTap());
    channels.monitorEvent(down(keyB));
    turnEventLoop();
    EXPECT_EQ(presses, 1);
    scheduler.advance(1h);
    EXPECT_EQ(channels.tapsCreated, 1) << "the tap isn't tried again";
}

TEST_F(GlobalHotkeyManagerTest, WithoutAMonitorItListensAllTheSame)
{
    channels.monitorAvailable = false;
    channels.trusted = true;
    make();
    EXPECT_THAT(
        takeLines(),
        testing::Contains(line(u"NSEvent global monitoring started (keyDown + flagsChanged)"_qs)));
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_FALSE(manager->hasEventMonitor());
    EXPECT_FALSE(channels.tapEvent(down(keyB)));
}

TEST_F(GlobalHotkeyManagerTest, CheckOfAnUnchangedPermissionDoesNothing)
{
    make();
    log.clear();
    manager->checkAndStartMonitoring();
    channels.trusted = true;
    manager->checkAndStartMonitoring();
    EXPECT_EQ(channels.tapsCreated, 1);
    log.clear();
    manager->checkAndStartMonitoring();
    EXPECT_THAT(takeLines(), IsEmpty());
    EXPECT_EQ(channels.tapsCreated, 1);
}

TEST_F(GlobalHotkeyManagerTest, CheckOfAPermissionWithdrawnStops)
{
    makeMonitoring();
    channels.trusted = false;
    manager->checkAndStartMonitoring();
    EXPECT_THAT(takeLines(), ElementsAre(line(u"Accessibility permissions not granted"_qs),
                                         line(u"Global hotkey monitoring stopped"_qs)));
    EXPECT_FALSE(manager->isEnabled());
    EXPECT_FALSE(manager->lastPermissionStatus());
}

TEST_F(GlobalHotkeyManagerTest, SilentCheckAsksNobodyAndChangesNothing)
{
    make();
    EXPECT_FALSE(manager->checkAccessibilityPermissions());
    channels.trusted = true;
    EXPECT_TRUE(manager->checkAccessibilityPermissions());
    EXPECT_EQ(channels.prompts, 0);
    EXPECT_FALSE(manager->lastPermissionStatus());
    EXPECT_FALSE(manager->isEnabled());
}

TEST_F(GlobalHotkeyManagerTest, RequestAsksAndLooksEverySecondUntilPermissionIsGiven)
{
    make();
    log.clear();
    manager->requestAccessibilityPermissions();
    EXPECT_EQ(channels.prompts, 1);
    EXPECT_TRUE(manager->hasPermissionPollingTimer());
    scheduler.advance(5s);
    EXPECT_FALSE(manager->isEnabled());
    EXPECT_THAT(takeLines(), IsEmpty());
    channels.trusted = true;
    scheduler.advance(999ms);
    EXPECT_FALSE(manager->isEnabled());
    scheduler.advance(1ms);
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_TRUE(manager->lastPermissionStatus());
    EXPECT_FALSE(manager->hasPermissionPollingTimer());
    EXPECT_EQ(takeLines().first(), line(u"Accessibility permissions have been granted!"_qs));
    EXPECT_THAT(shown.shown,
                ElementsAre(ShownToast{
                    ToastType::success, 2.0,
                    u"Accessibility permissions granted! Global hotkey is now active."_qs}));
    EXPECT_EQ(channels.prompts, 1);
}

TEST_F(GlobalHotkeyManagerTest, ToastComesWhenTheHotkeyIsActive)
{
    make();
    manager->requestAccessibilityPermissions();
    channels.trusted = true;
    bool wasEnabled = false;
    QObject::connect(&toasts, &ToastManager::shown, &toasts,
                     [&] { wasEnabled = manager->isEnabled(); });
    scheduler.advance(1s);
    EXPECT_TRUE(wasEnabled);
}

TEST_F(GlobalHotkeyManagerTest, PollsEndOncePermissionHasBeenSeen)
{
    make();
    manager->requestAccessibilityPermissions();
    channels.trusted = true;
    scheduler.advance(1s);
    log.clear();
    channels.trusted = false;
    scheduler.advance(10s);
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_TRUE(manager->lastPermissionStatus());
    EXPECT_THAT(takeLines(), IsEmpty());
    EXPECT_EQ(scheduler.pendingCount(), 0U);
}

TEST_F(GlobalHotkeyManagerTest, SecondRequestTakesThePlaceOfTheFirst)
{
    make();
    manager->requestAccessibilityPermissions();
    scheduler.advance(600ms);
    manager->requestAccessibilityPermissions();
    EXPECT_EQ(channels.prompts, 2);
    channels.trusted = true;
    scheduler.advance(999ms);
    EXPECT_FALSE(manager->isEnabled()) << "the first timer still ticks";
    scheduler.advance(1ms);
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_EQ(shown.shown.size(), 1U);
}

TEST_F(GlobalHotkeyManagerTest, RequestWithPermissionKnownTicksOnForNothing)
{
    makeMonitoring();
    manager->requestAccessibilityPermissions();
    for (int second = 0; second < 100; ++second) {
        scheduler.advance(1s);
        ASSERT_TRUE(manager->hasPermissionPollingTimer());
        ASSERT_EQ(scheduler.pendingCount(), 1U);
    }
    EXPECT_THAT(takeLines(), IsEmpty());
    EXPECT_THAT(shown.shown, IsEmpty());
    EXPECT_EQ(channels.tapsCreated, 1);
}

TEST_F(GlobalHotkeyManagerTest, PermissionWithdrawnWhilePollingIsOnlyRemembered)
{
    makeMonitoring();
    manager->requestAccessibilityPermissions();
    channels.trusted = false;
    scheduler.advance(1s);
    EXPECT_FALSE(manager->lastPermissionStatus());
    EXPECT_TRUE(manager->isEnabled());
    EXPECT_TRUE(manager->hasPermissionPollingTimer());
    EXPECT_THAT(takeLines(), IsEmpty());
    channels.trusted = true;
    scheduler.advance(1s);
    EXPECT_THAT(takeLines(), ElementsAre(line(u"Accessibility permissions have been granted!"_qs)));
    EXPECT_FALSE(manager->hasPermissionPollingTimer());
}

TEST_F(GlobalHotkeyManagerTest, StopLeavesThePollsAlone)
{
    makeMonitoring();
    manager->startPermissionPolling();
    manager->stopMonitoring();
    EXPECT_TRUE(manager->hasPermissionPollingTimer());
    EXPECT_EQ(channels.prompts, 0) << "polling alone asks nobody";
}

TEST_F(GlobalHotkeyManagerTest, StartingTwiceMakesOneTap)
{
    make();
    manager->startMonitoring();
    log.clear();
    manager->startMonitoring();
    EXPECT_EQ(channels.tapsCreated, 1);
    EXPECT_THAT(takeLines(), IsEmpty());
}

TEST_F(GlobalHotkeyManagerTest, StopEndsBothChannels)
{
    makeMonitoring();
    manager->stopMonitoring();
    EXPECT_THAT(takeLines(), ElementsAre(line(u"Global hotkey monitoring stopped"_qs)));
    EXPECT_FALSE(manager->isEnabled());
    EXPECT_FALSE(manager->hasEventTap());
    EXPECT_FALSE(manager->hasEventMonitor());
    EXPECT_EQ(channels.tapped, std::nullopt);
    EXPECT_EQ(channels.watched, std::nullopt);
}

TEST_F(GlobalHotkeyManagerTest, StopWhileIdleDoesNothing)
{
    make();
    log.clear();
    manager->stopMonitoring();
    EXPECT_THAT(takeLines(), IsEmpty());
}

TEST_F(GlobalHotkeyManagerTest, EndStopsThePollsAndTheChannels)
{
    makeMonitoring();
    manager->requestAccessibilityPermissions();
    manager.reset();
    EXPECT_THAT(takeLines(), ElementsAre(line(u"Global hotkey monitoring stopped"_qs)));
    EXPECT_EQ(channels.tapped, std::nullopt);
    EXPECT_EQ(channels.watched, std::nullopt);
    scheduler.advance(5s);
    EXPECT_EQ(scheduler.pendingCount(), 0U);
}

TEST_F(GlobalHotkeyManagerTest, EndWhileIdleSaysNothing)
{
    make();
    log.clear();
    manager.reset();
    EXPECT_THAT(takeLines(), IsEmpty());
}

TEST_F(GlobalHotkeyManagerTest, PressOnItsWayIsDroppedWithTheManager)
{
    makeMonitoring();
    channels.tapEvent(down(keyB));
    manager.reset();
    turnEventLoop();
    EXPECT_EQ(presses, 0);
}

struct StoredRow {
    const char* name;
    std::optional<qint64> keyCode;
    std::optional<qint64> modifiers;
    Hotkey loaded;
};

class StoredHotkey : public GlobalHotkeyManagerTest,
                     public testing::WithParamInterface<StoredRow> {};

const StoredRow storedRows[] = {
    {"Nothing", std::nullopt, std::nullopt, {11, 1572864}},
    {"Both", 49, 131072, {49, 131072}},
    {"ZeroKeyKeepsItsModifiers", 0, 262144, {11, 262144}},
    {"NegativeKey", -5, 262144, {11, 262144}},
    {"ZeroModifiers", 49, 0, {49, 1572864}},
    {"NegativeModifiers", 49, -1, {49, 1572864}},
    {"One", 1, 1, {1, 1}},
    {"Large", 0x7fffffffffff, 0x7fffffffffff, {0x7fffffffffff, 0x7fffffffffff}},
};

TEST_P(StoredHotkey, IsLoaded)
{
    if (GetParam().keyCode)
        defaults.setInteger(code, *GetParam().keyCode);
    if (GetParam().modifiers)
        defaults.setInteger(modifiers, *GetParam().modifiers);
    defaults.writes.clear();
    channels.trusted = true;
    make();
    const Hotkey& loaded = GetParam().loaded;
    EXPECT_EQ(manager->customKeyCode(), loaded.keyCode);
    EXPECT_EQ(manager->customModifiers(), loaded.modifiers);
    EXPECT_EQ(takeLines().first(), line(u"Loaded settings - keyCode: %1, modifiers: %2"_qs)
                                       .arg(loaded.keyCode)
                                       .arg(loaded.modifiers));
    EXPECT_EQ(channels.tapped, loaded);
    EXPECT_EQ(channels.watched, loaded);
    EXPECT_THAT(defaults.writes, IsEmpty()) << "defaults aren't written back";
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredHotkey, testing::ValuesIn(storedRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(GlobalHotkeyManagerTest, SettingsAreReadAgainOnlyWhenAsked)
{
    makeMonitoring();
    defaults.setInteger(code, 3);
    EXPECT_TRUE(
        manager->checkHotkeyMatch(keyB, commandOption, GlobalHotkeyManager::Channel::eventTap));
    manager->loadCustomHotkey();
    EXPECT_EQ(manager->customKeyCode(), 3);
}

TEST_F(GlobalHotkeyManagerTest, UpdateIsStoredCodeFirstAndListenedFor)
{
    makeMonitoring();
    defaults.writes.clear();
    manager->updateHotkey(49, 0x40000);
    EXPECT_THAT(defaults.writes, ElementsAre(code, modifiers));
    EXPECT_EQ(defaults.integer(code), 49);
    EXPECT_EQ(defaults.integer(modifiers), 0x40000);
    EXPECT_EQ(channels.tapped, (Hotkey{49, 0x40000}));
    EXPECT_EQ(channels.watched, (Hotkey{49, 0x40000}));
    const QStringList lines = takeLines();
    EXPECT_EQ(lines.first(), line(u"Global hotkey monitoring stopped"_qs));
    EXPECT_EQ(lines.size(), 4);
    EXPECT_TRUE(channels.tapEvent(down(keyB)));
    EXPECT_FALSE(channels.tapEvent(down(49, 0x40000)));
}

TEST_F(GlobalHotkeyManagerTest, UpdateWhileIdleIsStoredAndNoMore)
{
    make();
    log.clear();
    manager->updateHotkey(49, 0x40000);
    EXPECT_EQ(defaults.integer(code), 49);
    EXPECT_EQ(manager->customKeyCode(), 49);
    EXPECT_FALSE(manager->isEnabled());
    EXPECT_EQ(channels.tapsCreated, 0);
    EXPECT_THAT(takeLines(), IsEmpty());
}

TEST_F(GlobalHotkeyManagerTest, UpdateToZeroKeepsItAndListensForTheDefault)
{
    makeMonitoring();
    manager->updateHotkey(0, 0);
    EXPECT_EQ(manager->customKeyCode(), 0);
    EXPECT_EQ(manager->customModifiers(), 0U);
    EXPECT_EQ(defaults.storedType(code), DefaultsStore::ValueType::integer);
    EXPECT_EQ(defaults.integer(code), 0);
    EXPECT_EQ(defaults.integer(modifiers), 0);
    EXPECT_EQ(channels.tapped, (Hotkey{keyB, commandOption}));
    EXPECT_FALSE(channels.tapEvent(down(keyB)));
}

TEST_F(GlobalHotkeyManagerTest, UpdateIsToldOnceItIsInForce)
{
    makeMonitoring();
    QList<qint64> told;
    QObject::connect(manager.get(), &GlobalHotkeyManager::hotkeyUpdated, manager.get(), [&] {
        ASSERT_TRUE(channels.tapped);
        told.append(channels.tapped->keyCode);
        told.append(defaults.integer(code));
    });
    manager->updateHotkey(49, 0x40000);
    EXPECT_THAT(told, ElementsAre(49, 49));
}

TEST_F(GlobalHotkeyManagerTest, RequestIsForTheHotkeyThatIsListenedFor)
{
    make();
    manager->updateHotkey(-3, 0x40000);
    manager->requestAccessibilityPermissions();
    EXPECT_EQ(channels.askedFor, (Hotkey{keyB, 0x40000}));
}

} // namespace

} // namespace jotwell
