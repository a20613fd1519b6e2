#include "Services/Index/NoteIndex.h"

#include "QtPrinters.h"
#include "Services/Index/Records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NoteIndexTest : public testing::Test {
protected:
    [[nodiscard]] QList<QByteArray> notesOf(const QString& tag) const
    {
        QList<QByteArray> paths;
        for (const FileMetadata* record : m_index.tagToFiles().value(tag))
            paths.append(record->path);
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    NoteIndex m_index;
};

TEST_F(NoteIndexTest, ATagListsItsNotes)
{
    m_index.add(recordOf("/v/a.md", {u"x"_qs, u"y"_qs}));
    m_index.add(recordOf("/v/b.md", {u"x"_qs}));
    EXPECT_THAT(notesOf(u"x"_qs), ElementsAre("/v/a.md", "/v/b.md"));
    EXPECT_THAT(notesOf(u"y"_qs), ElementsAre("/v/a.md"));
    EXPECT_EQ(m_index.notes().size(), 2);
}

TEST_F(NoteIndexTest, ATagGoesWithItsLastNote)
{
    m_index.add(recordOf("/v/a.md", {u"x"_qs, u"y"_qs}));
    m_index.add(recordOf("/v/b.md", {u"x"_qs}));
    m_index.add(recordOf("/v/a.md", {u"z"_qs}));
    EXPECT_THAT(m_index.tagToFiles().keys(), testing::UnorderedElementsAre(u"x"_qs, u"z"_qs));
    m_index.remove("/v/b.md");
    EXPECT_THAT(m_index.tagToFiles().keys(), ElementsAre(u"z"_qs));
}

TEST_F(NoteIndexTest, RemovingAStrangerChangesNothing)
{
    m_index.add(recordOf("/v/a.md", {u"x"_qs}));
    m_index.remove("/v/none.md");
    EXPECT_THAT(notesOf(u"x"_qs), ElementsAre("/v/a.md"));
}

TEST_F(NoteIndexTest, TakingAllLeavesNothing)
{
    m_index.add(recordOf("/v/a.md", {u"x"_qs}));
    EXPECT_EQ(m_index.takeAll().notes.size(), 1);
    EXPECT_EQ(m_index.notes().size(), 0);
    EXPECT_THAT(m_index.tagToFiles(), IsEmpty());
    EXPECT_THAT(m_index.getAllTagsWithCounts(), IsEmpty());
}

TEST_F(NoteIndexTest, TagsAreSortedByCountThenByCodePoint)
{
    m_index.add(recordOf("/v/a.md", {u"b"_qs, u"z"_qs, u"\uff5e"_qs, u"😀"_qs}));
    m_index.add(recordOf("/v/b.md", {u"z"_qs}));
    m_index.add(recordOf("/v/c.md", {u"a"_qs}));
    EXPECT_THAT(m_index.getAllTagsWithCounts(),
                ElementsAre(TagCount{u"z"_qs, 2}, TagCount{u"a"_qs, 1}, TagCount{u"b"_qs, 1},
                            TagCount{u"\uff5e"_qs, 1}, TagCount{u"😀"_qs, 1}));
}

TEST_F(NoteIndexTest, TheEmptyTagIsCountedButNotSearched)
{
    m_index.add(recordOf("/v/a.md", {u""_qs, u"a"_qs}));
    EXPECT_THAT(m_index.getAllTagsWithCounts(),
                ElementsAre(TagCount{u""_qs, 1}, TagCount{u"a"_qs, 1}));
    EXPECT_THAT(m_index.searchTags({}), ElementsAre(TagCount{u"a"_qs, 1}));
}

TEST_F(NoteIndexTest, SearchedTagsBeginWithThePrefixAndTheTagOfThatNameIsFirst)
{
    m_index.add(recordOf("/v/a.md", {u"work"_qs, u"workshop"_qs, u"home"_qs, u"network"_qs}));
    m_index.add(recordOf("/v/b.md", {u"workshop"_qs, u"workers"_qs}));
    EXPECT_THAT(m_index.searchTags(u"WORK"_qs),
                ElementsAre(TagCount{u"work"_qs, 1}, TagCount{u"workshop"_qs, 2},
                            TagCount{u"workers"_qs, 1}));
}

TEST_F(NoteIndexTest, OnlyTheFirstTagsAreGivenUpToALimit)
{
    m_index.add(recordOf("/v/a.md", {u"b"_qs, u"ba"_qs, u"c"_qs}));
    m_index.add(recordOf("/v/b.md", {u"ba"_qs}));
    EXPECT_THAT(m_index.getAllTagsWithCounts(2),
                ElementsAre(TagCount{u"ba"_qs, 2}, TagCount{u"b"_qs, 1}));
    EXPECT_THAT(m_index.searchTags(u"B"_qs, 1), ElementsAre(TagCount{u"b"_qs, 1}));
    EXPECT_THAT(m_index.searchTags(u"B"_qs, 0), IsEmpty());
}

TEST_F(NoteIndexTest, CountsOfTagsAreThoseOfTheirNotes)
{
    std::mt19937 random(3);
    const auto anyOf = [&random](int count) { return QString::number(random() % count); };
    for (int round = 0; round < 500; ++round) {
        const QByteArray path = "/v/" + anyOf(20).toUtf8() + ".md";
        TagSet tags;
        for (unsigned each = random() % 4; each > 0; --each)
            insertTag(tags, anyOf(12));
        if (random() % 3 == 0)
            m_index.remove(path);
        else
            m_index.add(recordOf(path, tags));
        QHash<QString, qsizetype> counts;
        for (const TagCount& each : m_index.getAllTagsWithCounts())
            counts.insert(each.tag, each.count);
        ASSERT_EQ(counts.size(), m_index.tagToFiles().size());
        for (auto each = counts.begin(); each != counts.end(); ++each)
            ASSERT_EQ(each.value(), notesOf(each.key()).size());
    }
}

TEST_F(NoteIndexTest, AMarkIsNoPartOfATag)
{
    m_index.add(recordOf("/v/a.md", {u"work"_qs}));
    EXPECT_THAT(m_index.searchTags(u"#"_qs), IsEmpty());
    EXPECT_THAT(m_index.searchTags(u"#work"_qs), IsEmpty());
}

} // namespace

} // namespace jotwell
