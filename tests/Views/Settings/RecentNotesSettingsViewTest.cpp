#include "Views/Settings/SettingsBench.h"

#include <QGuiApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <limits>

using namespace jotwell;

namespace {

const int recentRow = SettingsSidebar::rowOf(QStringLiteral("/recent")).value();
const int otherRow = SettingsSidebar::rowOf(QStringLiteral("other")).value();

QString of(const char* text)
{
    return QString::fromUtf8(text);
}

class RecentNotesSettingsViewTest : public testing::Test {
protected:
    RecentNotesSettingsViewTest()
    {
        bench.setRecentFilesCount(25);
        bench.settingsView.select(recentRow);
    }

    SettingsBench bench;
    RecentNotesSettingsView& screen = *bench.settingsView.recentNotes();
};

struct Typed {
    const char* name;
    const char* text;
    std::optional<qint64> number;
};

class RecentFilesCount : public testing::TestWithParam<Typed> {};

} // namespace

TEST_P(RecentFilesCount, IsADecimalIntegerOfAtLeastOne)
{
    EXPECT_EQ(RecentNotesSettingsView::count(of(GetParam().text)), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    , RecentFilesCount,
    testing::Values(Typed{"Plain", "12", 12}, Typed{"One", "1", 1}, Typed{"Zero", "0", {}},
                    Typed{"Negative", "-3", {}}, Typed{"Letters", "abc", {}},
                    Typed{"Empty", "", {}}, Typed{"Signed", "+5", 5}, Typed{"SignAlone", "+", {}},
                    Typed{"MinusAlone", "-", {}}, Typed{"TwoSigns", "+-5", {}},
                    Typed{"LeadingZeros", "007", 7}, Typed{"BlankBefore", " 5", {}},
                    Typed{"BlankBehind", "5 ", {}}, Typed{"BlankBehindSign", "+ 5", {}},
                    Typed{"Decimals", "5.0", {}}, Typed{"Hexadecimal", "0x10", {}},
                    Typed{"Exponent", "1e3", {}}, Typed{"Groups", "1,000", {}},
                    Typed{"OtherDigits", "٥", {}}, Typed{"WideDigits", "５", {}},
                    Typed{"Greatest", "9223372036854775807", std::numeric_limits<qint64>::max()},
                    Typed{"TooGreat", "9223372036854775808", {}},
                    Typed{"MuchTooGreat", "99999999999999999999999999", {}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RecentNotesSettingsViewTest, NumberIsReadWhenTheScreenComesOnShow)
{
    EXPECT_EQ(screen.recentFilesCount(), of("25"));
    bench.settingsView.select(otherRow);
    bench.setRecentFilesCount(0);
    bench.settingsView.select(recentRow);
    EXPECT_EQ(screen.recentFilesCount(), of("10")) << "below one";
}

TEST_F(RecentNotesSettingsViewTest, EachChangeIsStored)
{
    const QSignalSpy putBacks(&screen, &RecentNotesSettingsView::putBack);
    for (const int number : {2, 27, 275}) {
        screen.setRecentFilesCount(QString::number(number));
        EXPECT_EQ(bench.recentFilesCount(), number);
    }
    EXPECT_EQ(putBacks.size(), 0);
}

TEST_F(RecentNotesSettingsViewTest, WhatIsNoNumberGivesWayToTheStoredOne)
{
    const QSignalSpy putBacks(&screen, &RecentNotesSettingsView::putBack);
    QSignalSpy changes(&screen, &RecentNotesSettingsView::recentFilesCountChanged);
    for (const char* text : {"0", "-3", "abc", ""}) {
        changes.clear();
        screen.setRecentFilesCount(of(text));
        EXPECT_EQ(screen.recentFilesCount(), of("25"));
        EXPECT_EQ(bench.recentFilesCount(), 25);
        EXPECT_GT(changes.size(), 0);
    }
    EXPECT_EQ(putBacks.size(), 4);
}

TEST_F(RecentNotesSettingsViewTest, DefaultIsPutBackWithoutBeingStored)
{
    bench.fake.defaults.remove(of("RecentFilesCount"));
    screen.setRecentFilesCount(of("x"));
    EXPECT_EQ(screen.recentFilesCount(), of("10"));
    EXPECT_FALSE(bench.fake.defaults.storedType(of("RecentFilesCount")));
}

TEST_F(RecentNotesSettingsViewTest, NumberOfAnotherProgramShowsWhenTheUserComesBack)
{
    bench.setRecentFilesCount(7);
    emit qApp->focusWindowChanged(nullptr);
    EXPECT_EQ(screen.recentFilesCount(), of("7"));
    bench.settingsView.select(otherRow);
    bench.setRecentFilesCount(8);
    emit qApp->focusWindowChanged(nullptr);
    EXPECT_EQ(screen.recentFilesCount(), of("7"));
    EXPECT_EQ(bench.recentFilesCount(), 8);
}
