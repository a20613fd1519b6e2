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

} // namespace

} // namespace jotwell
