#include "Views/DropdownModel.h"

#include "Views/ViewBench.h"

#include <QAbstractItemModelTester>
#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DropdownModelTest : public testing::Test {
protected:
    DropdownModelTest()
    {
        QObject::connect(&model, &DropdownModel::rowsReplaced, &model, [this] { ++replaced; });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [this] { ++resets; });
        QObject::connect(&model, &DropdownModel::selectedIndexChanged, &model,
                         [this] { selected.push_back(model.selectedIndex()); });
        QObject::connect(&model, &DropdownModel::scrollRequested, &model,
                         [this](int index, ScrollAnchor::Anchor anchor) {
                             scrolls.push_back({index, anchor});
                             rowsAtScroll.push_back(model.rowCount());
                         });
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
    QVariant at(int row, DropdownModel::Role role) const { return model.index(row).data(role); }
    std::vector<int> markedRows() const
    {
        std::vector<int> all;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (at(row, DropdownModel::isSelected).toBool())
                all.push_back(row);
        }
        return all;
    }
    void press(ArrowDirection direction)
    {
        bench.state().handleArrowKey(direction);
        bench.advance(0);
    }
    /// So many of the vault's folders, from "/recent $" on.
    void openFolders(int count)
    {
        for (int folder = 0; folder < count; ++folder)
            QDir(bench.vault.path()).mkdir(QStringLiteral("f%1").arg(folder, 3, 10, QChar(u'0')));
        writeAndTurn("/recent $");
    }
    static QString of(const char* text) { return QLatin1String(text); }

    ViewBench bench;
    DropdownModel model{bench.state(), bench.fake.scheduler};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    int replaced = 0;
    int resets = 0;
    std::vector<int> selected;
    std::vector<ScrollTarget> scrolls;
    std::vector<int> rowsAtScroll;
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
    EXPECT_EQ(names.size(), 6);
    EXPECT_EQ(names.value(DropdownModel::displayName), "displayName");
    EXPECT_EQ(names.value(DropdownModel::icon), "icon");
    EXPECT_EQ(names.value(DropdownModel::description), "description");
    EXPECT_EQ(names.value(DropdownModel::isSelected), "isSelected");
    EXPECT_EQ(names.value(DropdownModel::iconColor), "iconColor");
    EXPECT_EQ(names.value(DropdownModel::backgroundColor), "backgroundColor");
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
    EXPECT_EQ(replaced, 1);
    EXPECT_THAT(selected, ElementsAre(0));
    writeAndTurn("/");
    EXPECT_EQ(replaced, 2);
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
    EXPECT_EQ(replaced, 1);
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
    EXPECT_THAT(markedRows(), IsEmpty());
    EXPECT_EQ(replaced, 1);
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
    EXPECT_EQ(model.dropdownType(), DropdownType::command);
    EXPECT_FALSE(model.hasSymbols());
    writeAndTurn("/new_note $");
    EXPECT_EQ(model.dropdownType(), DropdownType::noteTemplate);
    EXPECT_TRUE(model.hasSymbols());
    bench.state().closeDropdowns();
    bench.advance(0);
    EXPECT_TRUE(model.hasSymbols());
}

TEST_F(DropdownModelTest, MarksTheSelectedRowInItsColours)
{
    writeAndTurn("/");
    ASSERT_GT(model.rowCount(), 1);
    EXPECT_THAT(markedRows(), ElementsAre(0));
    EXPECT_EQ(at(0, DropdownModel::iconColor), of("primary"));
    EXPECT_EQ(at(0, DropdownModel::backgroundColor), of("gray0.2"));
    EXPECT_EQ(at(1, DropdownModel::iconColor), of("accent"));
    EXPECT_EQ(at(1, DropdownModel::backgroundColor), of("clear"));
    press(ArrowDirection::down);
    EXPECT_THAT(markedRows(), ElementsAre(1));
    EXPECT_EQ(at(0, DropdownModel::iconColor), of("accent"));
    EXPECT_EQ(at(1, DropdownModel::iconColor), of("primary"));
}

TEST_F(DropdownModelTest, HoveringIsAMarkOfItsOwn)
{
    writeAndTurn("/");
    ASSERT_GT(model.rowCount(), 2);
    model.hover(1, true);
    EXPECT_EQ(at(1, DropdownModel::backgroundColor), of("gray0.1"));
    EXPECT_THAT(markedRows(), ElementsAre(0));
    EXPECT_EQ(model.selectedIndex(), 0);
    model.hover(0, true);
    EXPECT_EQ(at(0, DropdownModel::backgroundColor), of("gray0.2"));
    EXPECT_EQ(at(1, DropdownModel::backgroundColor), of("clear"));
}

TEST_F(DropdownModelTest, TheRowThatThePointerComesToMayHearOfItFirst)
{
    writeAndTurn("/");
    model.hover(1, true);
    model.hover(2, true);
    model.hover(1, false);
    EXPECT_EQ(at(2, DropdownModel::backgroundColor), of("gray0.1"));
    model.hover(2, false);
    EXPECT_EQ(at(2, DropdownModel::backgroundColor), of("clear"));
}

TEST_F(DropdownModelTest, AFolderIsNotTintedByThePointer)
{
    openFolders(3);
    ASSERT_GT(model.rowCount(), 1);
    model.hover(1, true);
    EXPECT_EQ(at(1, DropdownModel::backgroundColor), of("clear"));
    EXPECT_EQ(at(1, DropdownModel::iconColor), of("green"));
}

TEST_F(DropdownModelTest, WhatIsHoveredGoesWithTheListAndWithItsRow)
{
    writeAndTurn("/");
    model.hover(1, true);
    writeAndTurn("/re");
    writeAndTurn("/");
    EXPECT_EQ(at(1, DropdownModel::backgroundColor), of("clear"));
    model.hover(1, true);
    bench.state().closeDropdowns();
    bench.advance(0);
    writeAndTurn("/");
    EXPECT_EQ(at(1, DropdownModel::backgroundColor), of("clear"));
}

TEST_F(DropdownModelTest, HoversNothingThatIsNotThere)
{
    writeAndTurn("/");
    model.hover(model.rowCount(), true);
    model.hover(-1, true);
    for (int row = 1; row < model.rowCount(); ++row)
        EXPECT_EQ(at(row, DropdownModel::backgroundColor), of("clear"));
}

TEST_F(DropdownModelTest, ScrollsToTheMiddleOnAppearing)
{
    writeAndTurn("/");
    EXPECT_TRUE(model.isShown());
    EXPECT_THAT(scrolls, ElementsAre(ScrollTarget{0, ScrollAnchor::center}));
    writeAndTurn("/re");
    EXPECT_THAT(scrolls, SizeIs(1));
    bench.state().closeDropdowns();
    bench.advance(0);
    EXPECT_FALSE(model.isShown());
    EXPECT_THAT(scrolls, SizeIs(1));
    writeAndTurn("/");
    EXPECT_THAT(scrolls, SizeIs(2));
}

TEST_F(DropdownModelTest, AnArrowKeyBringsTheNextRowToTheFarEdge)
{
    openFolders(3);
    scrolls.clear();
    press(ArrowDirection::down);
    press(ArrowDirection::down);
    press(ArrowDirection::up);
    EXPECT_THAT(scrolls,
                ElementsAre(ScrollTarget{1, ScrollAnchor::top}, ScrollTarget{2, ScrollAnchor::top},
                            ScrollTarget{1, ScrollAnchor::bottom}));
}

TEST_F(DropdownModelTest, AtTheListsEndsNothingScrolls)
{
    writeAndTurn("/");
    scrolls.clear();
    press(ArrowDirection::up);
    EXPECT_THAT(scrolls, IsEmpty());
}

TEST_F(DropdownModelTest, ScrollsBehindTheRefresh)
{
    write("/");
    bench.state().handleArrowKey(ArrowDirection::down);
    EXPECT_THAT(scrolls, IsEmpty());
    bench.advance(0);
    EXPECT_THAT(scrolls, ElementsAre(ScrollTarget{1, ScrollAnchor::center},
                                     ScrollTarget{1, ScrollAnchor::top}));
    EXPECT_THAT(rowsAtScroll, Each(model.rowCount()));
}

TEST_F(DropdownModelTest, AListThatHasClosedMeanwhileIsNotScrolled)
{
    writeAndTurn("/");
    scrolls.clear();
    bench.state().handleArrowKey(ArrowDirection::down);
    bench.state().closeDropdowns();
    bench.advance(0);
    EXPECT_THAT(scrolls, IsEmpty());
    writeAndTurn("/");
    EXPECT_THAT(scrolls, ElementsAre(ScrollTarget{0, ScrollAnchor::center}));
}

TEST_F(DropdownModelTest, OtherRowsTakeThePlacesOfThoseBefore)
{
    int inserted = 0;
    int removed = 0;
    QObject::connect(
        &model, &QAbstractItemModel::rowsInserted, &model,
        [&](const QModelIndex&, int first, int last) { inserted += last - first + 1; });
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
                     [&](const QModelIndex&, int first, int last) { removed += last - first + 1; });
    writeAndTurn("/");
    const int all = model.rowCount();
    EXPECT_EQ(inserted, all);
    writeAndTurn("/re");
    EXPECT_EQ(removed, all - 1);
    EXPECT_THAT(names(), ElementsAre(of("/recent")));
    EXPECT_EQ(resets, 0);
}

TEST_F(DropdownModelTest, TheSameRowsAreNotReplaced)
{
    openFolders(3);
    writeAndTurn("/recent $f0"); // without "All Folders"
    const int before = replaced;
    int changes = 0;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, [&] { ++changes; });
    writeAndTurn("/recent $f00");
    EXPECT_EQ(replaced, before);
    EXPECT_EQ(changes, 0);
    writeAndTurn("/recent $f");
    EXPECT_EQ(replaced, before + 1);
}

TEST_F(DropdownModelTest, WhichOfOtherRowsIsSelectedIsKnownWithThem)
{
    openFolders(3);
    press(ArrowDirection::down);
    press(ArrowDirection::down);
    std::vector<int> known;
    QObject::connect(&model, &DropdownModel::rowsReplaced, &model,
                     [&] { known.push_back(model.selectedIndex()); });
    writeAndTurn("/recent $f0");
    EXPECT_THAT(known, ElementsAre(1));
    EXPECT_THAT(markedRows(), ElementsAre(1));
}

TEST_F(DropdownModelTest, ARowThatIsChosenWhileTheListIsOutdatedIsTheOneSeen)
{
    openFolders(3);
    const QString seen = names().at(2);
    write("/recent $f0");
    model.choose(2);
    EXPECT_TRUE(bench.text().contains(seen)) << bench.text().toStdString();
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
