#include "Views/Results/SearchResultsView.h"

#include "Fakes/FakeScheduler.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString of(const char* text)
{
    return QLatin1String(text);
}

NoteSearchResult found(const char* path, const std::optional<QString>& snippet = std::nullopt)
{
    NoteSearchResult result = NoteSearchResult::forPath(of(path));
    result.snippet = snippet;
    return result;
}

class SearchResultsViewTest : public testing::Test {
protected:
    SearchResultsViewTest()
    {
        QObject::connect(&view, &SearchResultsView::scrollRequested, &view,
                         [this](int index, ScrollAnchor::Anchor anchor) {
                             scrolls.push_back({index, anchor});
                         });
        QObject::connect(&view, &SearchResultsView::resultTapped, &view,
                         [this](int row) { tapped.push_back(row); });
    }
    QVariant at(int row, SearchResultsView::Role role) const { return view.index(row).data(role); }
    void showThree()
    {
        view.setSearchResults({found("/v/a/b/one.md", of("an <mark>apple</mark> tree")),
                               found("/v/two.md"), found("/v/a/three.md", of("  "))});
    }

    FakeScheduler scheduler;
    SearchResultsView view{scheduler};
    QAbstractItemModelTester tester{&view, QAbstractItemModelTester::FailureReportingMode::Fatal};
    std::vector<ScrollTarget> scrolls;
    std::vector<int> tapped;
};

} // namespace

TEST_F(SearchResultsViewTest, ShowsWhatWasFoundInItsOrder)
{
    showThree();
    ASSERT_EQ(view.rowCount(), 3);
    EXPECT_EQ(view.rowCount(view.index(0)), 0);
    EXPECT_EQ(at(0, SearchResultsView::fileName), of("one"));
    EXPECT_EQ(at(0, SearchResultsView::snippet), of("an <mark>apple</mark> tree"));
    EXPECT_EQ(at(1, SearchResultsView::fileName), of("two"));
    EXPECT_EQ(at(1, SearchResultsView::snippet), QString());
    EXPECT_EQ(at(1, SearchResultsView::path), of("/v/two.md"));
    EXPECT_EQ(at(0, SearchResultsView::path), of(".../b/one.md"));
    EXPECT_FALSE(view.index(0).data(Qt::DisplayRole).isValid());
}

TEST_F(SearchResultsViewTest, ASnippetOfOnlyBlanksIsShownInsteadOfThePath)
{
    showThree();
    EXPECT_EQ(at(2, SearchResultsView::snippet), of("  "));
}

TEST_F(SearchResultsViewTest, ReadsOutThePlainSnippetOrThePath)
{
    showThree();
    EXPECT_EQ(at(0, SearchResultsView::detail), of("an apple tree"));
    EXPECT_EQ(at(1, SearchResultsView::detail), of("/v/two.md"));
}

TEST_F(SearchResultsViewTest, NamesItsRoles)
{
    const auto names = view.roleNames();
    EXPECT_EQ(names.size(), 9);
    for (const char* const name : {"fileName", "snippet", "path", "detail", "isSelected",
                                   "isHovered", "iconColor", "backgroundColor", "highlightColor"})
        EXPECT_TRUE(names.values().contains(name)) << name;
}

TEST_F(SearchResultsViewTest, CountsItsNotes)
{
    EXPECT_EQ(SearchResultsView::countText(0), of("0 notes"));
    EXPECT_EQ(SearchResultsView::countText(1), of("1 note"));
    EXPECT_EQ(SearchResultsView::countText(2), of("2 notes"));
    int changes = 0;
    QObject::connect(&view, &SearchResultsView::countTextChanged, &view, [&] { ++changes; });
    showThree();
    EXPECT_EQ(view.countText(), of("3 notes"));
    EXPECT_EQ(changes, 1);
}

TEST_F(SearchResultsViewTest, MarksTheSelectedRow)
{
    showThree();
    std::vector<int> changed;
    QObject::connect(&view, &QAbstractItemModel::dataChanged, &view,
                     [&](const QModelIndex& row) { changed.push_back(row.row()); });
    view.setSelectedIndex(1);
    EXPECT_THAT(changed, ElementsAre(1));
    EXPECT_TRUE(at(1, SearchResultsView::isSelected).toBool());
    EXPECT_EQ(at(1, SearchResultsView::iconColor), of("primary"));
    EXPECT_EQ(at(1, SearchResultsView::backgroundColor), of("gray0.2"));
    EXPECT_EQ(at(1, SearchResultsView::highlightColor), of("orange"));
    EXPECT_FALSE(at(0, SearchResultsView::isSelected).toBool());
    EXPECT_EQ(at(0, SearchResultsView::iconColor), of("accent"));
    EXPECT_EQ(at(0, SearchResultsView::highlightColor), of("systemAccent"));
    view.setSelectedIndex(2);
    EXPECT_THAT(changed, ElementsAre(1, 1, 2));
    view.setSelectedIndex(-1);
    EXPECT_FALSE(at(2, SearchResultsView::isSelected).toBool());
}

TEST_F(SearchResultsViewTest, HoveringIsAMarkOfItsOwn)
{
    showThree();
    view.setSelectedIndex(0);
    view.hover(1, true);
    EXPECT_TRUE(at(1, SearchResultsView::isHovered).toBool());
    EXPECT_EQ(at(1, SearchResultsView::backgroundColor), of("gray0.1"));
    EXPECT_EQ(at(1, SearchResultsView::iconColor), of("accent"));
    view.hover(2, true);
    view.hover(1, false);
    EXPECT_FALSE(at(1, SearchResultsView::isHovered).toBool());
    EXPECT_TRUE(at(2, SearchResultsView::isHovered).toBool());
    view.hover(2, false);
    EXPECT_FALSE(at(2, SearchResultsView::isHovered).toBool());
    EXPECT_EQ(view.selectedIndex(), 0);
}

TEST_F(SearchResultsViewTest, OtherNotesAreNotHovered)
{
    showThree();
    view.hover(1, true);
    showThree();
    EXPECT_FALSE(at(1, SearchResultsView::isHovered).toBool());
}

TEST_F(SearchResultsViewTest, AnArrowKeyBringsItsRowToTheFarEdge)
{
    showThree();
    view.setSelectedIndex(1);
    view.scrollToSelected(ArrowDirection::down);
    view.scrollToSelected(ArrowDirection::up);
    view.scrollToSelected(std::nullopt);
    view.appear();
    EXPECT_THAT(scrolls, ElementsAre(ScrollTarget{1, ScrollAnchor::top},
                                     ScrollTarget{1, ScrollAnchor::bottom},
                                     ScrollTarget{1, ScrollAnchor::center},
                                     ScrollTarget{1, ScrollAnchor::center}));
}

TEST_F(SearchResultsViewTest, WithoutASelectedRowNothingScrolls)
{
    showThree();
    for (const int index : {-1, 3, 100}) {
        view.setSelectedIndex(index);
        view.scrollToSelected(ArrowDirection::down);
        view.appear();
    }
    EXPECT_THAT(scrolls, IsEmpty());
}

TEST_F(SearchResultsViewTest, OnlyARowThatIsThereIsTapped)
{
    showThree();
    for (const int row : {-1, 0, 2, 3})
        view.tap(row);
    EXPECT_THAT(tapped, ElementsAre(0, 2));
}

TEST_F(SearchResultsViewTest, WatchesTheKeyboardWhileItIsShown)
{
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
    view.setShown(true);
    QWindow window;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &press);
    scheduler.advance({});
    EXPECT_THAT(view.pressedKeys(), ElementsAre(of("Tab")));
    view.setShown(false);
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
    view.setShown(true);
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
}
