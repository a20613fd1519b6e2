#include "Services/Index/Search/SearchCache.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

TEST(CachedSearchResult, ExpiresBehindThreeHundredSeconds)
{
    const CachedSearchResult cached{{}, Clock::TimePoint(1000s), u"a"_qs};
    EXPECT_FALSE(cached.isExpired(Clock::TimePoint(1000s)));
    EXPECT_FALSE(cached.isExpired(Clock::TimePoint(1300s)));
    EXPECT_TRUE(cached.isExpired(Clock::TimePoint(1300s + 1ns)));
}

TEST(CachedSearchResult, DoesNotExpireWhenTheClockIsSetBack)
{
    const CachedSearchResult cached{{}, Clock::TimePoint(1000s), u"a"_qs};
    EXPECT_FALSE(cached.isExpired(Clock::TimePoint(10s)));
}

TEST(SearchCacheKey, IsTheTrimmedQueryInLowerCase)
{
    EXPECT_EQ(searchCacheKey(u"Foo"_qs), u"foo"_qs);
    EXPECT_EQ(searchCacheKey(u"  foo "_qs), u"foo"_qs);
    EXPECT_EQ(searchCacheKey(u"\n\u2028\u3000 A  B\u0085\r"_qs), u"a  b"_qs);
    EXPECT_EQ(searchCacheKey(u"\tfoo"_qs), u"\tfoo"_qs);
    EXPECT_EQ(searchCacheKey(u"  \n "_qs), u""_qs);
    EXPECT_EQ(searchCacheKey(u"\u0130"_qs), u"i\u0307"_qs);
}

} // namespace

} // namespace jotwell
