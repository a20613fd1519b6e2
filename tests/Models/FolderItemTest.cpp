#include "Models/FolderItem.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

TEST(FolderItem, RowShowsItsName)
{
    const DropdownItem row = FolderItem{u"Inbox"_qs}.row();
    EXPECT_EQ(std::get<QString>(row.id), u"Inbox"_qs);
    EXPECT_EQ(row.displayName, u"Inbox"_qs);
    EXPECT_EQ(row.icon, u"folder"_qs);
    EXPECT_EQ(row.description, u"Vault folder"_qs);
}

} // namespace

} // namespace jotwell
