#include "Views/Controls/TabItem.h"

#include <QMetaProperty>
#include <QVariant>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

const TabItem item{QUuid::createUuid(), QStringLiteral("Daily"), QStringLiteral("doc.text"),
                   QStringLiteral("arrow.triangle.2.circlepath")};

} // namespace

TEST(TabItem, IsEqualWhenAllFieldsAre)
{
    TabItem other = item;
    EXPECT_EQ(other, item);
    other.id = QUuid::createUuid();
    EXPECT_NE(other, item);
}

TEST(TabItem, DiffersByAnyText)
{
    for (QString TabItem::*const field :
         {&TabItem::title, &TabItem::icon, &TabItem::secondaryIcon}) {
        TabItem other = item;
        (other.*field).clear();
        EXPECT_NE(other, item);
    }
}

TEST(TabItem, GivesViewsItsIdAsText)
{
    EXPECT_EQ(TabItem::staticMetaObject.property(0).readOnGadget(&item), item.id.toString());
}
