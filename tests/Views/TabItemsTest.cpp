#include "Views/Controls/TabItems.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>

using namespace jotwell;

namespace {

class TabItemsTest : public testing::Test {
protected:
    static TabItem tab(const QString& title) { return {QUuid::createUuid(), title, {}, {}}; }

    TabItems tabs;
    QAbstractItemModelTester tester{&tabs, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserted{&tabs, &TabItems::rowsInserted};
    QSignalSpy removed{&tabs, &TabItems::rowsRemoved};
    QSignalSpy changed{&tabs, &TabItems::dataChanged};
    const TabItem a = tab(u"a"_qs), b = tab(u"b"_qs), c = tab(u"c"_qs), d = tab(u"d"_qs);
};

} // namespace

TEST_F(TabItemsTest, AreFoundByTheirIds)
{
    tabs.setItems({a, b});
    EXPECT_EQ(tabs.rowOf(b.id), 1);
    EXPECT_EQ(tabs.rowOfId(b.idText()), 1);
    EXPECT_EQ(tabs.rowOf(c.id), -1);
    EXPECT_EQ(tabs.rowOfId(u"nonsense"_qs), -1);
    EXPECT_EQ(tabs.idOfRow(0), a.idText());
    EXPECT_EQ(tabs.idOfRow(-1), QString());
    EXPECT_EQ(tabs.idOfRow(2), QString());
    EXPECT_EQ(tabs.index(1).data(Qt::UserRole).value<TabItem>(), b);
}

TEST_F(TabItemsTest, OtherTitleIsAChangeOfOneRow)
{
    tabs.setItems({a, b, c});
    inserted.clear();
    tabs.setItems({a, {b.id, u"B"_qs, {}, {}}, c});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(inserted.size() + removed.size(), 0);
    tabs.setItems(tabs.items());
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(TabItemsTest, RowsThatStayAreLeftAlone)
{
    tabs.setItems({a, b, d});
    inserted.clear();
    tabs.setItems({a, b, c, d});
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted.last().at(1), 2);
    EXPECT_EQ(removed.size(), 0);
    tabs.setItems({a, c, d});
    EXPECT_EQ(removed.size(), 1);
    EXPECT_EQ(removed.last().at(1), 1);
    EXPECT_EQ(inserted.size(), 1);
}

TEST_F(TabItemsTest, AnyRowsMayFollowAnyOthers)
{
    QRandomGenerator random(1);
    const QList<TabItem> all{a, b, c, d};
    for (int round = 0; round < 500; ++round) {
        QList<TabItem> next = all.first(random.bounded(5));
        std::shuffle(next.begin(), next.end(), random);
        tabs.setItems(next);
        ASSERT_EQ(tabs.items(), next);
    }
}
