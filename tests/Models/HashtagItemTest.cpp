#include "Models/HashtagItem.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

TEST(HashtagItem, RowShowsTheTagWithItsSign)
{
    const DropdownItem row = HashtagItem{u"tasks"_qs, 3}.row();
    EXPECT_EQ(std::get<QString>(row.id), u"tasks"_qs);
    EXPECT_EQ(row.displayName, u"#tasks"_qs);
    EXPECT_EQ(row.icon, u"number"_qs);
}

TEST(HashtagItem, OnlyOneNoteIsSingular)
{
    const auto description = [](int count) {
        return HashtagItem{u"a"_qs, count}.row().description;
    };
    EXPECT_EQ(description(0), u"0 notes"_qs);
    EXPECT_EQ(description(1), u"1 note"_qs);
    EXPECT_EQ(description(2), u"2 notes"_qs);
    EXPECT_EQ(description(12345), u"12345 notes"_qs);
}

} // namespace

} // namespace jotwell
