#include "Models/DropdownItem.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

const QUuid uuid = QUuid::fromString(u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs);

TEST(DropdownItem, IdentifiersOfTwoKindsDiffer)
{
    const DropdownItem byUuid{uuid, {}, {}, {}};
    const DropdownItem byText{u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs, {}, {}, {}};
    EXPECT_NE(byUuid.id, byText.id);
}

TEST(DropdownItem, IdentifiersOfOneKindAreEqualByValue)
{
    using Id = decltype(DropdownItem::id);
    EXPECT_EQ(Id(uuid), Id(QUuid(uuid)));
    EXPECT_NE(Id(uuid), Id(QUuid()));
    EXPECT_EQ(Id(u"Inbox"_qs), Id(u"Inbox"_qs));
    EXPECT_NE(Id(u"Inbox"_qs), Id(u"inbox"_qs));
}

} // namespace

} // namespace jotwell
