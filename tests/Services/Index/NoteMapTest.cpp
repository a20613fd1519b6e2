#include "Services/Index/NoteMap.h"

#include "QtPrinters.h"
#include "Services/Index/Records.h"

#include <gtest/gtest.h>

#include <set>

namespace jotwell {

namespace {

QByteArray pathOf(int number)
{
    return "/vault/note " + QByteArray::number(number) + ".md";
}

NoteMap mapOf(int count)
{
    NoteMap map;
    for (int each = 0; each < count; ++each)
        map.insert(recordOf(pathOf(each)));
    return map;
}

TEST(NoteMapTest, FindsWhatWasInserted)
{
    const NoteMap map = mapOf(1000);
    EXPECT_EQ(map.size(), 1000);
    for (int each = 0; each < 1000; ++each) {
        ASSERT_TRUE(map.find(pathOf(each)));
        EXPECT_EQ(map.find(pathOf(each))->path, pathOf(each));
    }
    EXPECT_FALSE(map.find(pathOf(1000)));
}

TEST(NoteMapTest, VisitsEachRecordOnce)
{
    const NoteMap map = mapOf(1000);
    std::set<QByteArray> seen;
    map.forEach([&seen](const FileMetadataPtr& record) { seen.insert(record->path); });
    EXPECT_EQ(seen.size(), 1000U);
}

TEST(NoteMapTest, SpreadsItsRecordsOverTheShards)
{
    const NoteMap map = mapOf(10'000);
    for (const NoteMap::Shard& shard : map.shards())
        EXPECT_LT(shard.size(), 120); // 39 on average
}

TEST(NoteMapTest, ARecordTakesThePlaceOfOneOfItsPath)
{
    NoteMap map = mapOf(3);
    const FileMetadataPtr fresh = recordOf(pathOf(1), {u"new"_qs});
    const FileMetadata* old = map.find(pathOf(1));
    EXPECT_EQ(map.insert(fresh).get(), old);
    EXPECT_EQ(map.insert(recordOf(pathOf(3))), nullptr);
    EXPECT_EQ(map.size(), 4);
    EXPECT_EQ(map.find(pathOf(1)), fresh.get());
}

TEST(NoteMapTest, RemovesOneRecord)
{
    NoteMap map = mapOf(3);
    EXPECT_TRUE(map.remove(pathOf(1)));
    EXPECT_FALSE(map.remove(pathOf(1)));
    EXPECT_EQ(map.size(), 2);
    EXPECT_FALSE(map.find(pathOf(1)));
    EXPECT_TRUE(map.find(pathOf(2)));
}

TEST(NoteMapTest, ACopyStaysAsItWas)
{
    NoteMap map = mapOf(500);
    const NoteMap copy = map;
    for (int each = 0; each < 500; each += 2)
        map.remove(pathOf(each));
    map.insert(recordOf(pathOf(1), {u"new"_qs}));
    map.insert(recordOf(pathOf(900)));
    EXPECT_EQ(copy.size(), 500);
    EXPECT_TRUE(copy.find(pathOf(0)));
    EXPECT_TRUE(copy.find(pathOf(1))->contentTags.isEmpty());
    EXPECT_FALSE(copy.find(pathOf(900)));
    EXPECT_EQ(map.size(), 251);
}

} // namespace

} // namespace jotwell
