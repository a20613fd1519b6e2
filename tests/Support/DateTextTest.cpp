#include "Support/DateText.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

constexpr std::chrono::system_clock::time_point moment{std::chrono::seconds(1709649967)};

/// Sets variables of the environment for the length of a test and puts them back behind it.
class DateText : public testing::Test {
protected:
    void set(const char* variable, const char* value)
    {
        m_before.emplace_back(variable, qgetenv(variable));
        if (value)
            qputenv(variable, value);
        else
            qunsetenv(variable);
    }

    void TearDown() override
    {
        for (auto each = m_before.rbegin(); each != m_before.rend(); ++each)
            qputenv(each->first, each->second);
    }

private:
    std::vector<std::pair<const char*, QByteArray>> m_before;
};

// Unicode's data puts a narrow no-break space before the half of the day, or a plain one, by
// version; either is what the user's system writes.
QString withPlainSpaces(QString text)
{
    return text.replace(QChar(0x202f), u' ');
}

TEST_F(DateText, PatternsAreOfUnicodeFields)
{
    EXPECT_EQ(dateText(moment, u"yyyy-MM-dd HHmmss"), u"2024-03-05 144607"_qs);
    EXPECT_EQ(dateText(moment, u"HH:mm"), u"14:46"_qs);
}

TEST_F(DateText, FollowsTheTimeZoneOfTheMoment)
{
    set("TZ", "Asia/Kolkata");
    EXPECT_EQ(dateText(moment, u"HH:mm"), u"20:16"_qs);
    set("TZ", "America/New_York");
    EXPECT_EQ(dateText(moment, u"HH:mm"), u"09:46"_qs);
}

TEST_F(DateText, MediumDateWithShortTime)
{
    EXPECT_EQ(withPlainSpaces(mediumDateShortTime(moment)), u"Mar 5, 2024, 2:46 PM"_qs);
}

TEST_F(DateText, TheLocaleOfDatesIsTheFirstOneSet)
{
    set("LC_ALL", "de_DE.UTF-8");
    set("LC_TIME", "fr_FR.UTF-8");
    EXPECT_EQ(mediumDateShortTime(moment), u"05.03.2024, 14:46"_qs);
    set("LC_ALL", "");
    EXPECT_TRUE(mediumDateShortTime(moment).contains(u"mars"));
    set("LC_TIME", nullptr);
    set("LANG", "es_ES.UTF-8");
    EXPECT_TRUE(mediumDateShortTime(moment).contains(u"mar"));
}

TEST_F(DateText, TheCLocaleReadsAsAmerican)
{
    for (const char* name : {"C", "POSIX", "C.UTF-8"}) {
        set("LC_ALL", name);
        EXPECT_EQ(withPlainSpaces(mediumDateShortTime(moment)), u"Mar 5, 2024, 2:46 PM"_qs);
    }
}

TEST_F(DateText, NoLocaleAtAllIsNoFailure)
{
    set("LC_ALL", nullptr);
    set("LC_TIME", nullptr);
    set("LANG", nullptr);
    EXPECT_EQ(withPlainSpaces(mediumDateShortTime(moment)), u"Mar 5, 2024, 2:46 PM"_qs);
    set("LC_ALL", "no-such-place@at=all");
    EXPECT_FALSE(mediumDateShortTime(moment).isEmpty());
}

TEST_F(DateText, MomentsBeforeTheEpochAreCutDownwards)
{
    using namespace std::chrono_literals;
    const std::chrono::system_clock::time_point before{-1ns};
    EXPECT_EQ(dateText(before, u"yyyy-MM-dd HHmmss"), u"1969-12-31 235959"_qs);
}

std::chrono::system_clock::time_point at(int year, unsigned month, unsigned day, int hour = 12)
{
    using namespace std::chrono;
    const year_month_day date{std::chrono::year(year), std::chrono::month(month),
                              std::chrono::day(day)};
    return sys_days(date) + hours(hour);
}

struct Distance {
    const char* name;
    std::chrono::milliseconds from; ///< now
    const char* english;
    const char* german;
};

class RelativeDate : public testing::TestWithParam<Distance> {};

TEST_P(RelativeDate, IsTheLargestFullUnit)
{
    const Distance& each = GetParam();
    qputenv("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(relativeDate(moment + each.from, moment), QString::fromLatin1(each.german));
    qputenv("LC_ALL", "en_US.UTF-8");
    EXPECT_EQ(relativeDate(moment + each.from, moment), QString::fromLatin1(each.english));
}

using namespace std::chrono_literals;
constexpr std::chrono::hours day = 24h;

INSTANTIATE_TEST_SUITE_P(
    , RelativeDate,
    testing::Values(Distance{"Now", 0s, "0 seconds ago", "vor 0 Sekunden"},
                    Distance{"LessThanASecond", -999ms, "0 seconds ago", "vor 0 Sekunden"},
                    Distance{"LessThanASecondAhead", 999ms, "0 seconds ago", "vor 0 Sekunden"},
                    Distance{"OneSecond", -1s, "1 second ago", "vor 1 Sekunde"},
                    Distance{"AlmostAMinute", -60s + 1ms, "59 seconds ago", "vor 59 Sekunden"},
                    Distance{"OneMinute", -60s, "1 minute ago", "vor 1 Minute"},
                    Distance{"FiveMinutes", -5min, "5 minutes ago", "vor 5 Minuten"},
                    Distance{"AlmostAnHour", -1h + 1ms, "59 minutes ago", "vor 59 Minuten"},
                    Distance{"OneHour", -1h, "1 hour ago", "vor 1 Stunde"},
                    Distance{"AlmostADay", -day + 1ms, "23 hours ago", "vor 23 Stunden"},
                    Distance{"OneDay", -day, "1 day ago", "vor 1 Tag"},
                    Distance{"AlmostAWeek", -7 * day + 1ms, "6 days ago", "vor 6 Tagen"},
                    Distance{"OneWeek", -7 * day, "1 week ago", "vor 1 Woche"},
                    Distance{"AlmostAMonth", -29 * day + 1ms, "4 weeks ago", "vor 4 Wochen"},
                    Distance{"OneMonth", -29 * day, "1 month ago", "vor 1 Monat"},
                    Distance{"AlmostAYear", -366 * day + 1ms, "11 months ago", "vor 11 Monaten"},
                    Distance{"OneYear", -366 * day, "1 year ago", "vor 1 Jahr"},
                    Distance{"ThirtyYears", -366 * 30 * day, "30 years ago", "vor 30 Jahren"},
                    Distance{"OneSecondAhead", 1s, "in 1 second", "in 1 Sekunde"},
                    Distance{"TwoHoursAhead", 2h, "in 2 hours", "in 2 Stunden"},
                    Distance{"OneDayAhead", day, "in 1 day", "in 1 Tag"},
                    Distance{"OneYearAhead", 365 * day, "in 1 year", "in 1 Jahr"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(DateText, UnitsAreAbbreviatedOnRequest)
{
    const auto abbreviated = [](auto from) {
        return relativeDate(moment + from, moment, UnitsStyle::abbreviated);
    };
    set("LC_ALL", "en_US.UTF-8");
    EXPECT_EQ(abbreviated(-5min), u"5m ago"_qs);
    EXPECT_EQ(abbreviated(-2 * day), u"2d ago"_qs);
    EXPECT_EQ(abbreviated(3h), u"in 3h"_qs);
    set("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(abbreviated(-5min), u"vor 5 m"_qs);
}

TEST_F(DateText, MonthsAreAsLongAsTheyAre)
{
    EXPECT_EQ(relativeDate(at(2023, 2, 1), at(2023, 3, 1)), u"1 month ago"_qs);
    EXPECT_EQ(relativeDate(at(2023, 3, 1), at(2023, 3, 29)), u"4 weeks ago"_qs);
    EXPECT_EQ(relativeDate(at(2024, 2, 29), at(2024, 3, 31)), u"1 month ago"_qs);
    EXPECT_EQ(relativeDate(at(2024, 2, 29), at(2025, 2, 28)), u"11 months ago"_qs);
}

TEST_F(DateText, DaysAreThoseOfTheTimeZone)
{
    set("TZ", "Europe/Berlin");
    const auto behindTheChange = at(2024, 3, 31);
    EXPECT_EQ(relativeDate(behindTheChange - 23h, behindTheChange), u"1 day ago"_qs);
    set("TZ", "UTC");
    EXPECT_EQ(relativeDate(behindTheChange - 23h, behindTheChange), u"23 hours ago"_qs);
}

} // namespace

} // namespace jotwell
