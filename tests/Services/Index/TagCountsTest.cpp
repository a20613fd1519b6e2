#include "Services/Index/TagCounts.h"

#include "QtPrinters.h"
#include "Support/TextUnits.h"

#include <QMap>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr qsizetype noLimit = std::numeric_limits<qsizetype>::max();

using Tags = QMap<QString, qsizetype>;

// All that begin with the prefix, sorted whole.
QList<TagCount> reference(const Tags& tags, const QString& prefix, const QString& exact)
{
    QList<TagCount> found;
    for (auto each = tags.begin(); each != tags.end(); ++each) {
        if (each.key().startsWith(prefix))
            found.append({each.key(), each.value()});
    }
    std::sort(found.begin(), found.end(), [&](const TagCount& left, const TagCount& right) {
        if ((left.tag == exact) != (right.tag == exact))
            return left.tag == exact;
        if (left.count != right.count)
            return left.count > right.count;
        return precedesByCodePoint(left.tag, right.tag);
    });
    return found;
}

QList<TagCount> all(const Tags& tags)
{
    return reference(tags, {}, u"no tag"_qs);
}

QList<TagCount> beginningWith(Tags tags, const QString& prefix)
{
    tags.remove(QString());
    return reference(tags, prefix, prefix);
}

TEST(TagCounts, NoneRemovesTheTag)
{
    TagCounts counts;
    counts.set(u"a"_qs, 0);
    counts.set(u"a"_qs, 1);
    counts.set(u"b"_qs, 3);
    counts.set(u"c"_qs, 2);
    counts.set(u"a"_qs, 4);
    EXPECT_THAT(counts.all(noLimit),
                ElementsAre(TagCount{u"a"_qs, 4}, TagCount{u"b"_qs, 3}, TagCount{u"c"_qs, 2}));
    counts.set(u"a"_qs, 0);
    counts.set(u"a"_qs, 0);
    EXPECT_THAT(counts.all(noLimit), ElementsAre(TagCount{u"b"_qs, 3}, TagCount{u"c"_qs, 2}));
    counts.set(u"c"_qs, 0);
    counts.set(u"b"_qs, 0);
    EXPECT_THAT(counts.all(noLimit), IsEmpty());
}

// Of the units in which heads are compared, in all orders and at all places.
QString hostileTag(std::mt19937& random)
{
    static const QString pieces[] = {u"a"_qs,
                                     u"a"_qs,
                                     u"b"_qs,
                                     QString(QChar()),
                                     u"\ud7ff"_qs,
                                     u"\ue000"_qs,
                                     u"\uffff"_qs,
                                     u"\U0001F600"_qs,
                                     QString(QChar(0xD83D)),
                                     QString(QChar(0xDE00))};
    QString tag;
    for (unsigned length = random() % 7; length > 0; --length)
        tag += pieces[random() % std::size(pieces)];
    return tag;
}

TEST(TagCounts, FirstOnesAreThoseOfTheWholeList)
{
    std::mt19937 random(1);
    TagCounts counts;
    Tags tags;
    for (int round = 0; round < 3000; ++round) {
        const QString tag = hostileTag(random);
        const qsizetype count = random() % 4;
        counts.set(tag, count);
        if (count == 0)
            tags.remove(tag);
        else
            tags.insert(tag, count);
        if (round % 10 != 0)
            continue;
        const QString prefix = round % 20 == 0 ? tag : tag.first(random() % (tag.size() + 1));
        const QList<TagCount> wholeList = all(tags);
        const QList<TagCount> wholeSearch = beginningWith(tags, prefix);
        for (const qsizetype limit : {qsizetype(0), qsizetype(1), qsizetype(20), noLimit}) {
            ASSERT_EQ(counts.all(limit), wholeList.mid(0, limit));
            ASSERT_EQ(counts.beginningWith(prefix, limit), wholeSearch.mid(0, limit));
        }
    }
    ASSERT_GT(tags.size(), 500);
}

TEST(TagCounts, ALimitBelowNoneIsNone)
{
    TagCounts counts;
    counts.set(u"a"_qs, 1);
    EXPECT_THAT(counts.all(-1), IsEmpty());
    EXPECT_THAT(counts.beginningWith(u"a"_qs, -1), IsEmpty());
}

} // namespace

} // namespace jotwell
