#include "Services/Index/TagSet.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

// Above the surrogates in UTF-16 order, but below every character beyond the basic plane.
const QString fullwidth = u"\uFF21"_qs;
const QString emoji = u"\U0001F600"_qs;

TEST(TagSet, InsertedTagsStandByCodePoint)
{
    TagSet tags;
    for (const QString& tag : {emoji, u"b"_qs, fullwidth, u"a"_qs, u""_qs, u"ab"_qs})
        insertTag(tags, tag);
    EXPECT_EQ(tags, (TagSet{u""_qs, u"a"_qs, u"ab"_qs, u"b"_qs, fullwidth, emoji}));
}

TEST(TagSet, ATagIsInsertedOnce)
{
    TagSet tags{u"a"_qs, u"b"_qs};
    for (const QString& tag : {u"a"_qs, u"b"_qs})
        insertTag(tags, tag);
    EXPECT_EQ(tags, (TagSet{u"a"_qs, u"b"_qs}));
}

TEST(TagSet, ContainsWhatWasInsertedAndNothingElse)
{
    const TagSet tags{u"a"_qs, u"c"_qs, fullwidth, emoji};
    for (const QString& tag : tags)
        EXPECT_TRUE(containsTag(tags, tag)) << tag.toStdString();
    for (const QString& tag : {u""_qs, u"A"_qs, u"b"_qs, u"ca"_qs, u"\uFF22"_qs})
        EXPECT_FALSE(containsTag(tags, tag)) << tag.toStdString();
    EXPECT_FALSE(containsTag(TagSet{}, u""_qs));
}

TEST(TagSet, TagsInAnyOrderMakeASet)
{
    TagCollector collector;
    for (const QString& tag : {emoji, u"b"_qs, fullwidth, u"b"_qs, u"a"_qs, emoji})
        collector.add(tag);
    EXPECT_EQ(collector.take(), (TagSet{u"a"_qs, u"b"_qs, fullwidth, emoji}));
    EXPECT_EQ(collector.take(), TagSet{});
}

TEST(TagSet, ManyTagsMakeASet)
{
    constexpr int different = 2'500;
    TagCollector collector;
    for (int number = 0; number < 3 * different; ++number)
        collector.add(QString::number(number % different));
    const TagSet tags = collector.take();
    EXPECT_EQ(tags.size(), different);
    for (int number = 0; number < different; ++number)
        EXPECT_TRUE(containsTag(tags, QString::number(number))) << number;
}

TEST(TagSet, UnionHoldsEachTagOnceInOrder)
{
    const TagSet left{u"a"_qs, u"c"_qs, emoji};
    const TagSet right{u"b"_qs, u"c"_qs, fullwidth};
    const TagSet both{u"a"_qs, u"b"_qs, u"c"_qs, fullwidth, emoji};
    EXPECT_EQ(unitedTags(left, right), both);
    EXPECT_EQ(unitedTags(right, left), both);
}

TEST(TagSet, UnionWithNothingIsTheOther)
{
    const TagSet tags{u"a"_qs, u"b"_qs};
    EXPECT_EQ(unitedTags(tags, {}), tags);
    EXPECT_EQ(unitedTags({}, tags), tags);
    EXPECT_EQ(unitedTags({}, {}), TagSet{});
}

// Canonically equivalent, but not the same.
TEST(TagSet, TagsAreComparedUnitByUnit)
{
    TagSet tags{u"\u00e9"_qs};
    insertTag(tags, u"e\u0301"_qs);
    EXPECT_EQ(tags, (TagSet{u"e\u0301"_qs, u"\u00e9"_qs}));
}

} // namespace

} // namespace jotwell
