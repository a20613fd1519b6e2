#include "Views/DropdownModel.h"

#include "Views/ViewBench.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::ElementsAre;

class DropdownModelTest : public testing::Test {
protected:
    DropdownModelTest()
    {
        QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [this] { ++resets; });
        QObject::connect(&model, &DropdownModel::selectedIndexChanged, &model,
                         [this] { selected.push_back(model.selectedIndex()); });
        QObject::connect(&model, &DropdownModel::hasSymbolsChanged, &model,
                         [this] { symbols.push_back(model.hasSymbols()); });
    }

    /// What the user has written by now; the model hears of it with the next turn.
    void write(const char* text)
    {
        bench.state().setText(QLatin1String(text));
        bench.state().handleTextChange();
    }
    void writeAndTurn(const char* text)
    {
        write(text);
        bench.advance(0);
    }
    QStringList names() const
    {
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all.append(model.index(row).data(DropdownModel::displayName).toString());
        return all;
    }
    static QString of(const char* text) { return QLatin1String(text); }

    ViewBench bench;
    DropdownModel model{bench.state(), bench.fake.scheduler};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    int resets = 0;
    std::vector<int> selected;
    std::vector<bool> symbols;
};

} // namespace

TEST_F(DropdownModelTest, IsEmptyAtFirst)
{
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.selectedIndex(), -1);
    EXPECT_FALSE(model.hasSymbols());
}

TEST_F(DropdownModelTest, HasTheRowsOfTheOpenList)
{
    writeAndTurn("/");
    const QList<CommandTemplateState::Item> items = bench.state().dropdownItems();
    ASSERT_EQ(model.rowCount(), items.size());
    ASSERT_GT(model.rowCount(), 1);
    for (int row = 0; row < model.rowCount(); ++row) {
        const DropdownItem expected = Dropdown::row(items.at(row));
        const QModelIndex index = model.index(row);
        EXPECT_EQ(index.data(DropdownModel::displayName).toString(), expected.displayName);
        EXPECT_EQ(index.data(DropdownModel::icon).toString(), expected.icon);
        EXPECT_EQ(index.data(DropdownModel::description).toString(), expected.description);
        EXPECT_FALSE(index.data(Qt::DisplayRole).isValid());
    }
    EXPECT_EQ(model.rowCount(model.index(0)), 0);
}

TEST_F(DropdownModelTest, NamesItsRoles)
{
    const auto names = model.roleNames();
    EXPECT_EQ(names.size(), 3);
    EXPECT_EQ(names.value(DropdownModel::displayName), "displayName");
    EXPECT_EQ(names.value(DropdownModel::icon), "icon");
    EXPECT_EQ(names.value(DropdownModel::description), "description");
}

TEST_F(DropdownModelTest, FollowsOnceATurn)
{
    write("/");
    write("/r");
    write("/re");
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_TRUE(selected.empty());
    bench.advance(0);
    EXPECT_THAT(names(), ElementsAre(of("/recent")));
    EXPECT_EQ(resets, 1);
    EXPECT_THAT(selected, ElementsAre(0));
    writeAndTurn("/");
    EXPECT_EQ(resets, 2);
}

TEST_F(DropdownModelTest, TheTextAloneRefreshesNothing)
{
    bench.advance(0);
    const std::size_t pending = bench.fake.scheduler.pendingCount();
    bench.state().setText(of("words"));
    bench.state().setForceTextUpdate(true);
    // The editor has the flag cleared; this asks for nothing.
    DropdownModel other(bench.state(), bench.fake.scheduler);
    bench.state().setText(of("other words"));
    bench.advance(0);
    EXPECT_TRUE(selected.empty());
    EXPECT_EQ(bench.fake.scheduler.pendingCount(), pending);
}

TEST_F(DropdownModelTest, FollowsTheSelection)
{
    writeAndTurn("/");
    EXPECT_EQ(model.selectedIndex(), 0);
    selected.clear();
    bench.state().handleArrowKey(ArrowDirection::down);
    EXPECT_EQ(model.selectedIndex(), 0);
    bench.advance(0);
    EXPECT_EQ(model.selectedIndex(), 1);
    EXPECT_THAT(selected, ElementsAre(1));
    EXPECT_EQ(resets, 1);
}

TEST_F(DropdownModelTest, TellsOfTheSelectionAlsoIfItIsTheSameRowOfOtherRows)
{
    writeAndTurn("/");
    writeAndTurn("/re");
    EXPECT_THAT(selected, ElementsAre(0, 0));
}

TEST_F(DropdownModelTest, KeepsItsRowsWhenTheListCloses)
{
    writeAndTurn("/");
    const int rows = model.rowCount();
    bench.state().closeDropdowns();
    bench.advance(0);
    EXPECT_FALSE(bench.state().fields().showDropdown);
    EXPECT_EQ(model.rowCount(), rows);
    EXPECT_EQ(model.selectedIndex(), -1);
    EXPECT_EQ(resets, 1);
}

TEST_F(DropdownModelTest, ARowThatIsChosenGoesIntoTheText)
{
    writeAndTurn("/");
    const auto row = names().indexOf(of("/recent"));
    ASSERT_GE(row, 0);
    model.choose(static_cast<int>(row));
    EXPECT_TRUE(bench.text().startsWith(of("/recent"))) << bench.text().toStdString();
}

TEST_F(DropdownModelTest, ARowThatIsNotThereIsNotChosen)
{
    writeAndTurn("/");
    model.choose(-1);
    model.choose(model.rowCount());
    EXPECT_EQ(bench.text(), of("/"));
    EXPECT_TRUE(bench.state().fields().showDropdown);
}

TEST_F(DropdownModelTest, CommandsHaveTextsForIconsAndOthersSymbols)
{
    writeAndTurn("/");
    EXPECT_FALSE(model.hasSymbols());
    EXPECT_TRUE(symbols.empty());
    writeAndTurn("/new_note $");
    ASSERT_EQ(bench.state().fields().dropdownType, DropdownType::noteTemplate);
    EXPECT_TRUE(model.hasSymbols());
    EXPECT_THAT(symbols, ElementsAre(true));
    bench.state().closeDropdowns();
    bench.advance(0);
    EXPECT_TRUE(model.hasSymbols());
}

TEST_F(DropdownModelTest, GoesBeforeWhatItHasAskedFor)
{
    {
        const DropdownModel shortLived(bench.state(), bench.fake.scheduler);
        write("/");
    }
    bench.advance(0);
    EXPECT_GT(model.rowCount(), 0);
}
