#include "Platform/linux/PortalShortcuts.h"

#include "Platform/linux/FakeServiceManager.h"
#include "Platform/linux/FakeShortcutsPortal.h"
#include "Platform/linux/PortalPermission.h"
#include "Platform/linux/PosixFileCalls.h"

#include <QDBusConnectionInterface>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

using namespace jotwell;
using testing::ElementsAre;
using testing::IsEmpty;
using Answer = FakeShortcutsPortal::Answer;
using Trait = FakeShortcutsPortal::Trait;

namespace {

using namespace std::chrono_literals;

constexpr Hotkey ctrlAltB{11, 0x180000};
constexpr Hotkey superShiftSpace{49, 0x60000};
constexpr int longEnoughForTheBus = 100;

bool soon(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 3000);
}

class PortalShortcutsTest : public testing::Test {
protected:
    PortalShortcutsTest() { qunsetenv("XDG_ACTIVATION_TOKEN"); }

    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("a/b/allowed")); }

    [[nodiscard]] std::unique_ptr<HotkeyChannel> listen(const Hotkey& hotkey = ctrlAltB)
    {
        return shortcuts.listen(hotkey, [this](const KeyEvent& event) { events.append(event); });
    }

    [[nodiscard]] bool isGivenSoon() const
    {
        return soon([this] { return permission.isGiven(); });
    }

    /// Whether a press at the portal arrives here.
    [[nodiscard]] bool hears(FakeShortcutsPortal& portal)
    {
        const auto before = events.size();
        QTest::qWait(longEnoughForTheBus);
        portal.activate();
        QTest::qWait(longEnoughForTheBus);
        return events.size() > before;
    }

    QTemporaryDir m_folder;
    PosixFileCalls files;
    PortalPermission permission{file(), files};
    PortalShortcuts shortcuts{permission};
    QList<KeyEvent> events;
};

} // namespace

TEST_F(PortalShortcutsTest, IntroducesTheProgramThenAsksForTheShortcut)
{
    FakeShortcutsPortal portal;
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    EXPECT_THAT(portal.calls, ElementsAre(u"host.portal.Registry.Register"_qs,
                                          u"portal.GlobalShortcuts.CreateSession"_qs,
                                          u"portal.GlobalShortcuts.BindShortcuts"_qs));
    EXPECT_EQ(portal.messages[0].arguments()[0], u"com.jotwell.Jotwell"_qs);
    EXPECT_EQ(portal.shortcutId, u"toggle-11-1572864"_qs);
    EXPECT_EQ(portal.shortcut, (QVariantMap{{u"description"_qs, u"Show or hide Jotwell"_qs},
                                            {u"preferred_trigger"_qs, u"CTRL+ALT+b"_qs}}));
    EXPECT_EQ(portal.messages[2].signature(), u"oa(sa{sv})sa{sv}"_qs);
}

TEST_F(PortalShortcutsTest, PortalHearsNothingBeforeTheProgramHasItsName)
{
    QFile units(m_folder.filePath(u"cgroup"_qs));
    ASSERT_TRUE(units.open(QIODevice::WriteOnly));
    units.write("0::/user.slice/user-1000.slice/session-2.scope\n");
    units.close();
    FakeServiceManager manager(FakeServiceManager::Answer::taken);
    FakeShortcutsPortal portal;
    PortalShortcuts named(permission, {units.fileName(), 1h});
    auto channel = named.listen(ctrlAltB, [](const KeyEvent&) {});
    ASSERT_TRUE(soon([&] { return !manager.calls.isEmpty(); }));
    QTest::qWait(longEnoughForTheBus);
    EXPECT_THAT(portal.calls, IsEmpty());
    const QString scope = manager.calls[0].arguments()[0].toString();
    manager.finish(scope);
    EXPECT_TRUE(isGivenSoon());
    channel.reset();
    QTest::qWait(longEnoughForTheBus);
    portal.calls.clear();
    channel = named.listen(superShiftSpace, [](const KeyEvent&) {});
    channel.reset(); // the name comes too late to be of use
    manager.finish(scope);
    QTest::qWait(longEnoughForTheBus);
    EXPECT_THAT(portal.calls, IsEmpty());
}

TEST_F(PortalShortcutsTest, TellsOfAPressAsOfTheHotkeyItself)
{
    FakeShortcutsPortal portal;
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    EXPECT_TRUE(hears(portal));
    EXPECT_THAT(events, ElementsAre(KeyEvent{KeyEvent::keyDown, 11, 0x180000}));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(PortalShortcutsTest, HandsTheCompositorsTokenOn)
{
    FakeShortcutsPortal portal;
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    QByteArray seen;
    const auto other = shortcuts.listen(
        ctrlAltB, [&seen](const KeyEvent&) { seen = qgetenv("XDG_ACTIVATION_TOKEN"); });
    portal.activate(portal.session, portal.shortcutId, {{u"activation_token"_qs, u"abc"_qs}});
    EXPECT_TRUE(soon([&] { return seen == "abc"; }));
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(PortalShortcutsTest, OtherShortcutsAreNotOurs)
{
    FakeShortcutsPortal portal;
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    portal.activate(portal.session, u"another"_qs);
    portal.activate(u"/org/freedesktop/portal/desktop/session/1_1/x"_qs, portal.shortcutId);
    QTest::qWait(longEnoughForTheBus);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_TRUE(hears(portal));
}

TEST_F(PortalShortcutsTest, TellsOnceThatNoPortalCanAsk)
{
    int times = 0;
    shortcuts.ask(ctrlAltB, [&times] { ++times; });
    EXPECT_TRUE(soon([&times] { return times > 0; }));
    FakeShortcutsPortal portal; // is asked again, as it has come since
    EXPECT_TRUE(isGivenSoon());
    shortcuts.ask(ctrlAltB, [&times] { ++times; });
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(times, 1);
}

TEST_F(PortalShortcutsTest, TellsThatItCannotAskForAKeyWithoutAName)
{
    FakeShortcutsPortal portal;
    int times = 0;
    constexpr Hotkey nameless{1000, 0x180000};
    shortcuts.ask(nameless, [&times] { ++times; });
    EXPECT_EQ(times, 1);
    QTest::qWait(longEnoughForTheBus);
    EXPECT_THAT(portal.calls, IsEmpty());
}

TEST_F(PortalShortcutsTest, TellsNothingOfALaterPortalThatCannotAsk)
{
    int times = 0;
    {
        FakeShortcutsPortal portal;
        shortcuts.ask(ctrlAltB, [&times] { ++times; });
        ASSERT_TRUE(isGivenSoon());
    }
    QTest::qWait(longEnoughForTheBus);
    FakeShortcutsPortal portal(Answer::granted, {Trait::refusing});
    EXPECT_TRUE(soon([&] { return portal.calls.size() == 2; }));
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(times, 0) << "the user's wish was granted long ago";
}

struct PortalRow {
    const char* name;
    Answer answer;
    QList<Trait> traits;
    bool isBound;
};

class PortalOf : public PortalShortcutsTest, public testing::WithParamInterface<PortalRow> {};

const PortalRow portalRows[] = {
    {"EveryDay", Answer::granted, {}, true},
    {"WithARegistry", Answer::granted, {Trait::knowsPrograms}, true},
    {"WithItsSession", Answer::granted, {Trait::bindsWithSession}, true},
    {"FewWords", Answer::grantedWithoutList, {}, true},
    {"HasteWithItsAnswers", Answer::granted, {Trait::answersEarly}, true},
    {"NothingGranted", Answer::grantedNothing, {}, false},
    {"Nonsense", Answer::grantedNonsense, {}, false},
    {"NoSession", Answer::granted, {Trait::withoutSession}, false},
    {"Denial", Answer::denied, {}, false},
    {"Failure", Answer::failed, {}, false},
    {"Silence", Answer::none, {}, false},
    {"SilenceFromTheStart", Answer::granted, {Trait::silentFromTheStart}, false},
    {"Refusal", Answer::granted, {Trait::refusing}, false},
};

TEST_P(PortalOf, IsTakenAsItIs)
{
    FakeShortcutsPortal portal(GetParam().answer, GetParam().traits);
    const auto channel = listen();
    EXPECT_NE(channel, nullptr);
    EXPECT_TRUE(!GetParam().isBound || isGivenSoon());
    EXPECT_EQ(hears(portal), GetParam().isBound);
    EXPECT_EQ(permission.isGiven(), GetParam().isBound);
    EXPECT_EQ(QFile::exists(file()), GetParam().isBound);
}

INSTANTIATE_TEST_SUITE_P(Rows, PortalOf, testing::ValuesIn(portalRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(PortalShortcutsTest, ShortcutThatCameWithTheSessionIsNotAskedForAgain)
{
    FakeShortcutsPortal portal(Answer::granted, {Trait::bindsWithSession});
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    EXPECT_TRUE(hears(portal));
    EXPECT_EQ(portal.timesBound(), 0);
    EXPECT_EQ(portal.shortcutId, u"toggle-11-1572864"_qs);
    EXPECT_EQ(portal.shortcut[u"preferred_trigger"_qs], u"CTRL+ALT+b"_qs);
}

TEST_F(PortalShortcutsTest, UsersOwnWishIsAlwaysPutToTheDesktop)
{
    FakeShortcutsPortal portal(Answer::granted, {Trait::bindsWithSession});
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(isGivenSoon());
    const auto channel = listen();
    EXPECT_TRUE(hears(portal));
    EXPECT_EQ(portal.timesBound(), 1);
}

TEST_F(PortalShortcutsTest, PortalThatComesBackIsNotTheUsersWish)
{
    auto portal =
        std::make_unique<FakeShortcutsPortal>(Answer::granted, QList{Trait::bindsWithSession});
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(isGivenSoon());
    const auto channel = listen();
    portal.reset();
    QTest::qWait(longEnoughForTheBus);
    portal = std::make_unique<FakeShortcutsPortal>(Answer::granted, QList{Trait::bindsWithSession});
    EXPECT_TRUE(soon([&] { return !portal->shortcutId.isEmpty(); }));
    EXPECT_TRUE(hears(*portal));
    EXPECT_EQ(portal->timesBound(), 0);
}

TEST_F(PortalShortcutsTest, SessionHasTheSameNameForEachHotkeyAndInEachRun)
{
    FakeShortcutsPortal portal;
    auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    EXPECT_EQ(portal.sessionToken, u"Jotwell"_qs);
    channel.reset();
    channel = listen(superShiftSpace);
    ASSERT_TRUE(soon([&] { return portal.shortcutId.startsWith(u"toggle-49-"); }));
    EXPECT_EQ(portal.sessionToken, u"Jotwell"_qs);
    PortalShortcuts another(permission);
    another.ask(ctrlAltB);
    ASSERT_TRUE(soon([&] { return portal.shortcutId.startsWith(u"toggle-11-"); }));
    EXPECT_EQ(portal.sessionToken, u"Jotwell"_qs);
}

// What is behind the portal may still have the last one where it was.
TEST_F(PortalShortcutsTest, SessionIsNeverWhereOneWasBefore)
{
    auto portal = std::make_unique<FakeShortcutsPortal>();
    QStringList sessions;
    const auto hasAnother = [&] {
        return !portal->session.isEmpty() && !sessions.contains(portal->session);
    };
    auto channel = listen();
    ASSERT_TRUE(soon(hasAnother));
    sessions.append(portal->session);
    channel.reset();
    channel = listen(superShiftSpace);
    ASSERT_TRUE(soon(hasAnother));
    sessions.append(portal->session);
    portal.reset();
    QTest::qWait(longEnoughForTheBus);
    portal = std::make_unique<FakeShortcutsPortal>();
    ASSERT_TRUE(soon(hasAnother));
    EXPECT_TRUE(hears(*portal));
}

TEST_F(PortalShortcutsTest, SessionThatIsOnlyOnItsWayIsLeftWithItsConnection)
{
    FakeShortcutsPortal portal(Answer::granted, {Trait::silentFromTheStart});
    auto channel = listen();
    ASSERT_TRUE(soon([&] { return !portal.messages.isEmpty(); }));
    const QString connection = portal.messages[0].service();
    const auto isThere = [&connection] {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(connection).value();
    };
    EXPECT_TRUE(isThere());
    channel.reset();
    EXPECT_TRUE(soon([&isThere] { return !isThere(); }));
}

TEST_F(PortalShortcutsTest, UsersWishIsThatOfASessionOnItsWay)
{
    FakeShortcutsPortal portal(Answer::granted, {Trait::bindsWithSession});
    const auto channel = listen();
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(isGivenSoon());
    EXPECT_TRUE(hears(portal));
    EXPECT_THAT(portal.calls, ElementsAre(u"host.portal.Registry.Register"_qs,
                                          u"portal.GlobalShortcuts.CreateSession"_qs,
                                          u"portal.GlobalShortcuts.BindShortcuts"_qs));
}

TEST_F(PortalShortcutsTest, SessionWithoutTheShortcutOpensNothingByItself)
{
    FakeShortcutsPortal portal(Answer::granted, {Trait::bindsWithSession, Trait::bindsAnother});
    const auto channel = listen();
    ASSERT_TRUE(soon([&] { return !portal.session.isEmpty(); }));
    EXPECT_FALSE(hears(portal));
    EXPECT_EQ(portal.timesBound(), 0);
    EXPECT_FALSE(permission.isGiven());
}

TEST_F(PortalShortcutsTest, TellsThatThePortalFailed)
{
    FakeShortcutsPortal portal(Answer::failed);
    int times = 0;
    shortcuts.ask(ctrlAltB, [&times] { ++times; });
    EXPECT_TRUE(soon([&times] { return times > 0; }));
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(times, 1);
}

TEST_F(PortalShortcutsTest, PermissionIsRememberedUntilADenial)
{
    {
        FakeShortcutsPortal portal;
        shortcuts.ask(ctrlAltB);
        ASSERT_TRUE(isGivenSoon());
    }
    EXPECT_EQ(QFile::permissions(file()) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
    EXPECT_TRUE(PortalPermission(file(), files).isGiven());
    FakeShortcutsPortal portal(Answer::denied);
    shortcuts.ask(superShiftSpace);
    EXPECT_TRUE(soon([this] { return !permission.isGiven(); }));
    EXPECT_FALSE(PortalPermission(file(), files).isGiven());
}

TEST_F(PortalShortcutsTest, DeniedShortcutLeavesNothingAtThePortal)
{
    permission.give();
    FakeShortcutsPortal portal(Answer::denied);
    shortcuts.ask(ctrlAltB);
    EXPECT_TRUE(soon([&portal] { return portal.closed.contains(portal.session); }));
    EXPECT_FALSE(permission.isGiven());
}

TEST_F(PortalShortcutsTest, FailureIsNoDenial)
{
    permission.give();
    FakeShortcutsPortal portal(Answer::failed);
    const auto channel = listen();
    EXPECT_FALSE(hears(portal));
    EXPECT_TRUE(permission.isGiven());
}

TEST_F(PortalShortcutsTest, WhatCannotBeRememberedHoldsForNow)
{
    PortalPermission nowhere(u"/proc/none/allowed"_qs, files);
    nowhere.give();
    EXPECT_TRUE(nowhere.isGiven());
    nowhere.withdraw();
    EXPECT_FALSE(nowhere.isGiven());
}

TEST_F(PortalShortcutsTest, ListeningUsesWhatHasBeenAskedFor)
{
    FakeShortcutsPortal portal;
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(isGivenSoon());
    const auto channel = listen();
    shortcuts.ask(ctrlAltB);
    EXPECT_TRUE(hears(portal));
    EXPECT_EQ(portal.calls.count(u"portal.GlobalShortcuts.CreateSession"_qs), 1);
    EXPECT_THAT(portal.closed, IsEmpty());
}

TEST_F(PortalShortcutsTest, ListeningWaitsForAnAnswerUnderWay)
{
    FakeShortcutsPortal portal(Answer::none);
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(soon([&] { return !portal.shortcutId.isEmpty(); }));
    const auto channel = listen();
    portal.answer(Answer::granted);
    EXPECT_TRUE(hears(portal));
    EXPECT_EQ(portal.calls.count(u"portal.GlobalShortcuts.CreateSession"_qs), 1);
}

TEST_F(PortalShortcutsTest, SecondWishTakesTheFirstBack)
{
    FakeShortcutsPortal portal(Answer::none);
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(soon([&] { return !portal.shortcutId.isEmpty(); }));
    const QString session = portal.session;
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(soon([&] { return portal.closed.size() == 2; }));
    EXPECT_THAT(
        portal.closed[0],
        testing::ResultOf([](const QString& path) { return path.contains(u"/request/"); }, true));
    EXPECT_EQ(portal.closed[1], session);
}

TEST_F(PortalShortcutsTest, AnotherHotkeyIsAnotherShortcut)
{
    FakeShortcutsPortal portal;
    auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    const QString session = portal.session;
    const QString id = portal.shortcutId;
    channel.reset();
    channel = listen(superShiftSpace);
    ASSERT_TRUE(soon([&] { return portal.shortcutId != id; }));
    EXPECT_THAT(portal.closed, ElementsAre(session));
    EXPECT_EQ(portal.shortcut[u"preferred_trigger"_qs], u"LOGO+SHIFT+space"_qs);
    EXPECT_TRUE(hears(portal));
    EXPECT_THAT(events, ElementsAre(KeyEvent{KeyEvent::keyDown, 49, 0x60000}));
    portal.activate(session, id); // is nobody's any more
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(events.size(), 1);
    EXPECT_TRUE(hears(portal));
}

TEST_F(PortalShortcutsTest, ListeningForAnotherHotkeyThanWasAskedForAsksAgain)
{
    FakeShortcutsPortal portal;
    shortcuts.ask(ctrlAltB);
    ASSERT_TRUE(isGivenSoon());
    const auto channel = listen(superShiftSpace);
    ASSERT_TRUE(soon([&] { return portal.shortcutId.startsWith(u"toggle-49-"); }));
    EXPECT_TRUE(hears(portal));
}

TEST_F(PortalShortcutsTest, NothingIsHeardBehindTheEndOfTheChannel)
{
    FakeShortcutsPortal portal;
    auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    channel.reset();
    EXPECT_FALSE(hears(portal));
    EXPECT_THAT(portal.closed, ElementsAre(portal.session));
}

TEST_F(PortalShortcutsTest, EndWhileTheUserIsAskedTakesTheQuestionBack)
{
    FakeShortcutsPortal portal(Answer::none);
    {
        PortalShortcuts brief(permission);
        brief.ask(ctrlAltB);
        ASSERT_TRUE(soon([&] { return !portal.shortcutId.isEmpty(); }));
        QTest::qWait(longEnoughForTheBus);
    }
    EXPECT_TRUE(soon([&] { return portal.closed.size() == 2; }));
    portal.answer(Answer::granted);
    QTest::qWait(longEnoughForTheBus);
    EXPECT_FALSE(permission.isGiven());
}

TEST_F(PortalShortcutsTest, PortalMayComeLater)
{
    const auto channel = listen();
    ASSERT_NE(channel, nullptr);
    QTest::qWait(longEnoughForTheBus);
    FakeShortcutsPortal portal;
    EXPECT_TRUE(isGivenSoon());
    EXPECT_TRUE(hears(portal));
    EXPECT_EQ(portal.calls.size(), 3);
}

TEST_F(PortalShortcutsTest, PortalThatComesBackIsAskedAgain)
{
    auto portal = std::make_unique<FakeShortcutsPortal>();
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    for (int restart = 0; restart < 3; ++restart) {
        portal.reset();
        QTest::qWait(longEnoughForTheBus);
        portal = std::make_unique<FakeShortcutsPortal>();
        ASSERT_TRUE(soon([&] { return !portal->shortcutId.isEmpty(); }));
        EXPECT_TRUE(hears(*portal));
        EXPECT_EQ(portal->calls.size(), 3);
    }
}

TEST_F(PortalShortcutsTest, PortalThatGoesWhileAskingIsAskedAgain)
{
    auto portal = std::make_unique<FakeShortcutsPortal>(Answer::none);
    const auto channel = listen();
    ASSERT_TRUE(soon([&] { return !portal->shortcutId.isEmpty(); }));
    portal = nullptr;
    portal = std::make_unique<FakeShortcutsPortal>();
    EXPECT_TRUE(isGivenSoon());
    EXPECT_TRUE(hears(*portal));
}

TEST_F(PortalShortcutsTest, PortalThatComesBackDoesNotHearOfADenialAgain)
{
    auto portal = std::make_unique<FakeShortcutsPortal>(Answer::denied);
    const auto channel = listen();
    EXPECT_FALSE(hears(*portal));
    portal.reset();
    QTest::qWait(longEnoughForTheBus);
    portal = std::make_unique<FakeShortcutsPortal>();
    QTest::qWait(longEnoughForTheBus);
    EXPECT_THAT(portal->calls, IsEmpty());
    shortcuts.ask(ctrlAltB); // the user's own wish
    EXPECT_TRUE(isGivenSoon());
    EXPECT_TRUE(hears(*portal));
}

TEST_F(PortalShortcutsTest, PortalIsNotAskedOnceNobodyListens)
{
    auto portal = std::make_unique<FakeShortcutsPortal>();
    auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    channel.reset();
    portal.reset();
    QTest::qWait(longEnoughForTheBus);
    portal = std::make_unique<FakeShortcutsPortal>();
    QTest::qWait(longEnoughForTheBus);
    EXPECT_THAT(portal->calls, IsEmpty());
}

TEST_F(PortalShortcutsTest, SessionClosedByThePortalIsOver)
{
    FakeShortcutsPortal portal;
    const auto channel = listen();
    ASSERT_TRUE(isGivenSoon());
    QTest::qWait(longEnoughForTheBus);
    portal.closeSession(portal.session);
    EXPECT_FALSE(hears(portal));
    EXPECT_THAT(portal.closed, IsEmpty());
    EXPECT_TRUE(permission.isGiven());
}

TEST_F(PortalShortcutsTest, KeyThatNoKeyboardHasIsNotAskedFor)
{
    FakeShortcutsPortal portal;
    const auto channel = listen({12345, 0x180000});
    EXPECT_FALSE(hears(portal));
    EXPECT_THAT(portal.calls, IsEmpty());
}
