#include "Services/GlobalHotkeyManager.h"

#include "Services/HotkeyFixture.h"

#include <gmock/gmock.h>

#include <limits>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Channel = GlobalHotkeyManager::Channel;

constexpr quint64 capsLock = 0x10000;
constexpr quint64 function = 0x800000;
constexpr quint64 leftKeys = 0x2b; // which of two equal modifiers it is
constexpr quint64 everyOtherBit = ~ModifierBit::all;

using GlobalHotkeyManagerEventsTest = GlobalHotkeyManagerTest;

struct MatchRow {
    const char* name;
    Hotkey custom;
    int keyCode;
    quint64 flags;
    bool matches;
};

class HotkeyMatch : public GlobalHotkeyManagerTest, public testing::WithParamInterface<MatchRow> {};

constexpr Hotkey byDefault{0, 0};

const MatchRow matchRows[] = {
    {"Default", byDefault, 11, 0x180000, true},
    {"DefaultWithAnotherKey", byDefault, 49, 0x180000, false},
    {"KeyOfCodeZero", byDefault, 0, 0x180000, false},
    {"ExtraShift", byDefault, 11, 0x1a0000, false},
    {"ExtraControl", byDefault, 11, 0x1c0000, false},
    {"WithoutOption", byDefault, 11, 0x100000, false},
    {"WithoutCommand", byDefault, 11, 0x80000, false},
    {"WithoutModifiers", byDefault, 11, 0, false},
    {"AllFour", byDefault, 11, 0x1e0000, false},
    {"CapsLock", byDefault, 11, 0x180000 | capsLock, true},
    {"Function", byDefault, 11, 0x180000 | function, true},
    {"LeftKeys", byDefault, 11, 0x180000 | leftKeys, true},
    {"EveryBitThatDoesNotCount", byDefault, 11, 0x180000 | everyOtherBit, true},
    {"OnlyBitsThatDoNotCount", byDefault, 11, everyOtherBit, false},
    {"Custom", {49, 0x20000}, 49, 0x20000, true},
    {"CustomDoesNotHearOfTheDefault", {49, 0x20000}, 11, 0x180000, false},
    {"ZeroKeyWithModifiersOfItsOwn", {0, 0x40000}, 11, 0x40000, true},
    {"NegativeKey", {-1, 0x40000}, 11, 0x40000, true},
    {"NegativeKeyItself", {-1, 0x40000}, -1, 0x40000, false},
    {"ZeroModifiers", {49, 0}, 49, 0x180000, true},
    {"ModifiersThatCannotBeHeld", {49, 0x1000000}, 49, 0x1000000, false},
};

TEST_P(HotkeyMatch, IsTheSameInBothChannels)
{
    make();
    manager->updateHotkey(GetParam().custom.keyCode, GetParam().custom.modifiers);
    for (const Channel channel : {Channel::eventTap, Channel::globalMonitor})
        EXPECT_EQ(manager->checkHotkeyMatch(GetParam().keyCode, GetParam().flags, channel),
                  GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(Rows, HotkeyMatch, testing::ValuesIn(matchRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(GlobalHotkeyManagerEventsTest, AnyKeyCodeMayBeAskedFor)
{
    make();
    EXPECT_FALSE(manager->checkHotkeyMatch(std::numeric_limits<qint64>::max(), commandOption,
                                           Channel::eventTap));
    EXPECT_FALSE(manager->checkHotkeyMatch(std::numeric_limits<qint64>::min(), commandOption,
                                           Channel::eventTap));
    // Equal to 11 in its lower half.
    EXPECT_FALSE(
        manager->checkHotkeyMatch((Q_INT64_C(1) << 32) + 11, commandOption, Channel::eventTap));
}

TEST_F(GlobalHotkeyManagerEventsTest, MatchIsLogged)
{
    make();
    log.clear();
    EXPECT_TRUE(manager->checkHotkeyMatch(11, 0x180000 | capsLock, Channel::eventTap));
    EXPECT_THAT(
        takeLines(),
        ElementsAre(line(u"CGEvent flags check - target: 1572864, current: 1572864"_qs),
                    line(u"✅ MATCH FOUND! - keyCode: 11==11, modifiers: 1572864==1572864"_qs)));
}

TEST_F(GlobalHotkeyManagerEventsTest, MissedModifiersAreLogged)
{
    make();
    log.clear();
    EXPECT_FALSE(manager->checkHotkeyMatch(11, 0x1a0000, Channel::globalMonitor));
    EXPECT_THAT(
        takeLines(),
        ElementsAre(line(u"NSEvent flags check - target: 1572864, current: 1703936"_qs),
                    line(u"No match - keyCode: 11==11 ✓, modifiers: 1703936==1572864 ✗"_qs)));
}

TEST_F(GlobalHotkeyManagerEventsTest, AnotherKeyIsNotLookedAt)
{
    make();
    log.clear();
    EXPECT_FALSE(manager->checkHotkeyMatch(12, commandOption, Channel::eventTap));
    EXPECT_THAT(takeLines(), IsEmpty());
}

TEST_F(GlobalHotkeyManagerEventsTest, TapSwallowsTheHotkeyAndNothingElse)
{
    makeMonitoring();
    EXPECT_FALSE(channels.tapEvent(down(keyB)));
    EXPECT_TRUE(channels.tapEvent(down(keyB, 0x100000)));
    EXPECT_TRUE(channels.tapEvent(down(12)));
    EXPECT_TRUE(channels.tapEvent({KeyEvent::flagsChanged, keyB, commandOption}));
    for (const int type : {0, 11, 22, -1, -2})
        EXPECT_TRUE(channels.tapEvent({type, keyB, commandOption})) << type;
    turnEventLoop();
    EXPECT_EQ(presses, 1);
}

TEST_F(GlobalHotkeyManagerEventsTest, EventThatIsForOthersComesBackUnchanged)
{
    make();
    const KeyEvent event = down(12, 0x180000 | capsLock);
    EXPECT_EQ(manager->handleCGEvent(event), event);
    EXPECT_EQ(manager->handleCGEvent(down(keyB)), std::nullopt);
}

TEST_F(GlobalHotkeyManagerEventsTest, TapSaysWhatItSees)
{
    makeMonitoring();
    channels.tapEvent(down(12, 0x180000 | capsLock));
    EXPECT_THAT(takeLines(), ElementsAre(line(u"CGEvent: keyCode=12, flags=1638400"_qs)));
    channels.tapEvent(down(keyB));
    const QStringList lines = takeLines();
    EXPECT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.first(), line(u"CGEvent: keyCode=11, flags=1572864"_qs));
    EXPECT_EQ(lines.last(), line(u"Hotkey detected via CGEvent"_qs));
}

TEST_F(GlobalHotkeyManagerEventsTest, MonitorSaysWhatItSees)
{
    makeMonitoring();
    channels.monitorEvent(down(12));
    EXPECT_THAT(takeLines(), ElementsAre(line(u"NSEvent: keyCode=12, flags=1572864"_qs)));
    channels.monitorEvent(down(keyB));
    const QStringList lines = takeLines();
    EXPECT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.first(), line(u"NSEvent: keyCode=11, flags=1572864"_qs));
    EXPECT_EQ(lines.last(), line(u"Hotkey detected via NSEvent"_qs));
}

TEST_F(GlobalHotkeyManagerEventsTest, ModifiersAloneAreNoHotkey)
{
    makeMonitoring();
    channels.tapEvent({KeyEvent::flagsChanged, keyB, commandOption});
    channels.monitorEvent({KeyEvent::flagsChanged, keyB, commandOption});
    channels.monitorEvent({11, keyB, commandOption});
    turnEventLoop();
    EXPECT_EQ(presses, 0);
    EXPECT_THAT(takeLines(), IsEmpty());
}

TEST_F(GlobalHotkeyManagerEventsTest, HandlerRunsOnALaterTurn)
{
    makeMonitoring();
    channels.tapEvent(down(keyB));
    EXPECT_EQ(presses, 0);
    turnEventLoop();
    EXPECT_EQ(presses, 1);
}

TEST_F(GlobalHotkeyManagerEventsTest, TakerGetsThePressesInsteadOfTheHandler)
{
    makeMonitoring();
    QList<Hotkey> taken;
    manager->setHotkeyTaker([&](const Hotkey& hotkey) { taken.append(hotkey); });
    EXPECT_FALSE(channels.tapEvent(down(keyB))) << "nobody else sees it";
    EXPECT_TRUE(channels.tapEvent(down(keyB, 0x100000)));
    channels.monitorEvent(down(keyB));
    const Hotkey hotkey{keyB, commandOption};
    EXPECT_THAT(taken, ElementsAre(hotkey, hotkey));
    turnEventLoop();
    EXPECT_EQ(presses, 0);

    manager->setHotkeyTaker({});
    channels.tapEvent(down(keyB));
    turnEventLoop();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(taken.size(), 2);
}

TEST_F(GlobalHotkeyManagerEventsTest, HandlerIsTheOneThatIsThereWhenItRuns)
{
    makeMonitoring();
    int others = 0;
    channels.tapEvent(down(keyB));
    manager->setHotkeyHandler([&others] { ++others; });
    turnEventLoop();
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(others, 1);
}

TEST_F(GlobalHotkeyManagerEventsTest, WithoutAHandlerThePressStillCounts)
{
    makeMonitoring();
    manager->setHotkeyHandler({});
    channels.tapEvent(down(keyB));
    EXPECT_EQ(manager->deduplication().lastTriggerTime, clock.now());
    turnEventLoop();
    EXPECT_EQ(presses, 0);
}

TEST_F(GlobalHotkeyManagerEventsTest, PressSeenByBothChannelsCountsOnce)
{
    makeMonitoring();
    channels.monitorEvent(down(keyB));
    clock.advance(2ms);
    EXPECT_FALSE(channels.tapEvent(down(keyB))) << "it is swallowed all the same";
    turnEventLoop();
    EXPECT_EQ(presses, 1);
}

struct IntervalRow {
    const char* name;
    std::chrono::nanoseconds between;
    bool isAccepted;
};

class TriggerInterval : public GlobalHotkeyManagerTest,
                        public testing::WithParamInterface<IntervalRow> {};

const IntervalRow intervalRows[] = {
    {"AtOnce", 0ns, false},       {"JustWithin", 99'999'999ns, false},
    {"Exactly", 100ms, false},    {"JustBehind", 100'000'001ns, true},
    {"ABit", 110ms, true},        {"ADay", 24h, true},
    {"ClockPutBack", -1s, false},
};

TEST_P(TriggerInterval, Decides)
{
    make();
    manager->triggerHotkey();
    const auto first = clock.now();
    clock.advance(GetParam().between);
    manager->triggerHotkey();
    turnEventLoop();
    EXPECT_EQ(presses, GetParam().isAccepted ? 2 : 1);
    EXPECT_EQ(manager->deduplication().lastTriggerTime,
              GetParam().isAccepted ? clock.now() : first);
}

INSTANTIATE_TEST_SUITE_P(Rows, TriggerInterval, testing::ValuesIn(intervalRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(GlobalHotkeyManagerEventsTest, HeldHotkeyTriggersAgainSinceItsLastAcceptedRepeat)
{
    makeMonitoring();
    for (int repeat = 0; repeat < 10; ++repeat) {
        channels.tapEvent(down(keyB));
        clock.advance(40ms);
    }
    turnEventLoop();
    EXPECT_EQ(presses, 4) << "at 0, 120, 240 and 360 ms";
}

TEST_F(GlobalHotkeyManagerEventsTest, NoPressHasBeenAcceptedAtTheStart)
{
    make();
    EXPECT_EQ(manager->deduplication().lastTriggerTime, Clock::TimePoint());
}

} // namespace

} // namespace jotwell
