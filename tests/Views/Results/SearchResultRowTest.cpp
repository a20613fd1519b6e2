#include "Views/Results/SearchResultRow.h"

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

QString truncated(const char* path)
{
    return truncatedPath(QLatin1String(path));
}

QString of(const char* text)
{
    return QLatin1String(text);
}

} // namespace

TEST(SearchResultRow, ShowsTheEndOfAPathOfFourComponentsAndMore)
{
    EXPECT_EQ(truncated("a/b/c/d"), of(".../c/d"));
    EXPECT_EQ(truncated("a/b/c/d/e"), of(".../d/e"));
    EXPECT_EQ(truncated("/a/b/c"), of(".../b/c"));
    EXPECT_EQ(truncated("a//b/"), of(".../b/"));
    EXPECT_EQ(truncated("///"), of("...//"));
}

TEST(SearchResultRow, ShowsAShortPathAsItIs)
{
    EXPECT_EQ(truncated("a/b/c"), of("a/b/c"));
    EXPECT_EQ(truncated("/a/b"), of("/a/b"));
    EXPECT_EQ(truncated("name"), of("name"));
    EXPECT_EQ(truncated(""), of(""));
}

TEST(SearchResultRow, HasItsColoursByItsState)
{
    EXPECT_EQ(SearchResultRow::iconColor(false), of("accent"));
    EXPECT_EQ(SearchResultRow::iconColor(true), of("primary"));
    EXPECT_EQ(SearchResultRow::backgroundColor(false, false), of("clear"));
    EXPECT_EQ(SearchResultRow::backgroundColor(false, true), of("gray0.1"));
    EXPECT_EQ(SearchResultRow::backgroundColor(true, false), of("gray0.2"));
    EXPECT_EQ(SearchResultRow::backgroundColor(true, true), of("gray0.2"));
    EXPECT_EQ(SearchResultRow::highlightColor(false), of("systemAccent"));
    EXPECT_EQ(SearchResultRow::highlightColor(true), of("orange"));
}
