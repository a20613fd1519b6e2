#include "Views/FloatingWindowView.h"

#include "Views/ViewBench.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;
using namespace std::chrono_literals;

namespace {

class FloatingWindowViewTest : public testing::Test {
protected:
    bool showsAccent() const
    {
        return view.showAccentBorder() && view.showAccentBackground() && !showsError();
    }
    bool showsError() const { return view.showErrorBorder() && view.showErrorBackground(); }
    bool showsNothing() const
    {
        return !view.showAccentBorder() && !view.showAccentBackground() &&
               !view.showErrorBorder() && !view.showErrorBackground();
    }

    /// As the user does, in the text field.
    void write(const QString& text)
    {
        view.editor()->bindings().setText(text);
        view.editor()->bindings().onTextChange();
    }
    bool press(ArrowDirection direction) { return view.editor()->bindings().onArrowKey(direction); }
    bool pressReturn() { return view.editor()->bindings().onEnterKey(); }
    bool pressTab() { return view.editor()->bindings().onTabKey(); }
    void showPanel(int count)
    {
        view.appear();
        bench.advance(100);
        write(QStringLiteral("/search_notes garden"));
        bench.deliver(count);
    }
    QStringList openedUrls() const { return bench.fake.workspace.opened; }

    ViewBench bench;
    FloatingWindowView& view = bench.floatingWindowView;
    QSignalSpy toggles{&view, &FloatingWindowView::toggleRequested};
    QSignalSpy scrolls{&view, &FloatingWindowView::scrollToSelectedSearchResult};
};

} // namespace

TEST_F(FloatingWindowViewTest, HeightFollowsWhatTheCardShows)
{
    EXPECT_EQ(FloatingWindowView::dynamicHeight(false, false), 164);
    EXPECT_EQ(FloatingWindowView::dynamicHeight(true, false), 264);
    EXPECT_EQ(FloatingWindowView::dynamicHeight(false, true), 484);
    EXPECT_EQ(FloatingWindowView::dynamicHeight(true, true), 584);
    EXPECT_EQ(view.dynamicHeight(), 164);
}

TEST_F(FloatingWindowViewTest, TakesTheKeyboardATenthOfASecondAfterAppearing)
{
    view.appear();
    bench.advance(99);
    EXPECT_FALSE(view.isFocused());
    bench.advance(1);
    EXPECT_TRUE(view.isFocused());
}

TEST_F(FloatingWindowViewTest, SpringPlaysBeforeTheOutcomeIsKnown)
{
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    EXPECT_EQ(view.springScale(), 1.05);
    EXPECT_TRUE(showsNothing());
    bench.advance(99);
    EXPECT_EQ(view.springScale(), 1.05);
    bench.advance(1);
    EXPECT_EQ(view.springScale(), 1.0);
}

TEST_F(FloatingWindowViewTest, SuccessFlashesInTheAccentColourAndClearsTheText)
{
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    ASSERT_TRUE(QTest::qWaitFor([this] { return showsAccent(); }));
    EXPECT_EQ(bench.text(), QString());
    EXPECT_EQ(bench.noteCount(), 1);
    bench.advance(299);
    EXPECT_TRUE(showsAccent());
    bench.advance(1);
    EXPECT_TRUE(showsNothing());
}

TEST_F(FloatingWindowViewTest, FailureFlashesInRedAndKeepsTheText)
{
    bench.settings.setObsidianFolderPath(std::nullopt);
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    ASSERT_TRUE(QTest::qWaitFor([this] { return showsError(); }));
    EXPECT_EQ(bench.text(), QStringLiteral("Call Ada /new_note"));
    EXPECT_FALSE(bench.forceTextUpdate());
    bench.advance(300);
    EXPECT_TRUE(showsNothing());
}

TEST_F(FloatingWindowViewTest, TextWithoutACommandFails)
{
    bench.setText(QStringLiteral("Call Ada"));
    view.handleCommandEnter();
    EXPECT_TRUE(showsError());
    EXPECT_EQ(bench.text(), QStringLiteral("Call Ada"));
    EXPECT_EQ(bench.toastCount(), 0);
}

TEST_F(FloatingWindowViewTest, EndOfAnEarlierFlashSwitchesALaterOneOff)
{
    view.handleCommandEnter();
    bench.advance(200);
    view.handleCommandEnter();
    EXPECT_TRUE(showsError());
    bench.advance(99);
    EXPECT_TRUE(showsError());
    bench.advance(1);
    EXPECT_TRUE(showsNothing());
}

TEST_F(FloatingWindowViewTest, StepOfAnEarlierSpringEndsALaterOne)
{
    view.handleCommandEnter();
    bench.advance(60);
    view.handleCommandEnter();
    bench.advance(40);
    EXPECT_EQ(view.springScale(), 1.0);
}

TEST_F(FloatingWindowViewTest, ListsOfNotesComeHereOnceItHasAppeared)
{
    EXPECT_FALSE(bench.commands.onSearchResults());
    showPanel(2);
    EXPECT_TRUE(view.showSearchResults());
    EXPECT_EQ(view.searchResults().size(), 2);
    EXPECT_EQ(view.dynamicHeight(), 484);
    EXPECT_EQ(view.results()->rowCount(), 2);
}

TEST_F(FloatingWindowViewTest, ListThatComesTooLateForTheViewIsDropped)
{
    CommandService::SearchResultsListener listener;
    {
        FloatingWindowView other(InputServices{bench.commands, bench.settings, bench.notes,
                                               bench.index, bench.templates, bench.fake.scheduler},
                                 bench.toastManager);
        other.appear();
        listener = bench.commands.onSearchResults();
    }
    listener({NoteSearchResult::forPath(QStringLiteral("/v/a.md"))});
    EXPECT_FALSE(view.showSearchResults());
}

TEST_F(FloatingWindowViewTest, ListOfAClearedSearchStaysOutOfSight)
{
    showPanel(2);
    write(QStringLiteral(" /search_notes \n"));
    EXPECT_FALSE(view.showSearchResults());
    EXPECT_TRUE(view.searchResults().isEmpty());
    bench.deliver(2);
    EXPECT_FALSE(view.showSearchResults());
    EXPECT_EQ(view.searchResults().size(), 2);
    write(QString());
    EXPECT_TRUE(view.searchResults().isEmpty());
    bench.deliver(2);
    EXPECT_FALSE(view.showSearchResults());
}

TEST_F(FloatingWindowViewTest, NextListBeginsWithoutASelection)
{
    showPanel(3);
    pressTab();
    press(ArrowDirection::down);
    bench.deliver(3);
    EXPECT_TRUE(view.showSearchResults());
    EXPECT_EQ(view.selectedSearchResultIndex(), -1);
    EXPECT_FALSE(view.searchResultsHaveFocus());
    EXPECT_FALSE(pressReturn());
}

TEST_F(FloatingWindowViewTest, EmptyListKeepsThePanelHidden)
{
    showPanel(0);
    EXPECT_FALSE(view.showSearchResults());
}

TEST_F(FloatingWindowViewTest, RecentNotesAloneShowThePanel)
{
    view.appear();
    write(QStringLiteral("/recent"));
    bench.deliver(1);
    EXPECT_TRUE(view.showSearchResults());
}

TEST_F(FloatingWindowViewTest, TextOfAnotherCommandHidesThePanelAndTakesTheKeyboard)
{
    showPanel(2);
    pressTab();
    EXPECT_FALSE(view.isFocused());
    write(QStringLiteral("garden"));
    EXPECT_FALSE(view.showSearchResults());
    EXPECT_FALSE(view.searchResultsHaveFocus());
    EXPECT_TRUE(view.isFocused());
    EXPECT_EQ(view.dynamicHeight(), 164);
}

TEST_F(FloatingWindowViewTest, ClearedSearchLeavesTheKeyboardWhereItIs)
{
    showPanel(2);
    pressTab();
    write(QStringLiteral("/search_notes "));
    EXPECT_FALSE(view.showSearchResults());
    EXPECT_FALSE(view.isFocused());
}

TEST_F(FloatingWindowViewTest, OpenFolderListTakesTheArrowKeysBack)
{
    QDir(bench.vault.path()).mkdir(QStringLiteral("Inbox"));
    showPanel(2);
    pressTab();
    write(QStringLiteral("/recent  $In"));
    ASSERT_EQ(bench.state().fields().dropdownType, DropdownType::folder);
    EXPECT_TRUE(view.showSearchResults());
    EXPECT_FALSE(view.searchResultsHaveFocus());
    EXPECT_TRUE(view.isFocused());
}

TEST_F(FloatingWindowViewTest, ArrowsGoThroughTheRowsAndStopAtBothEnds)
{
    showPanel(2);
    EXPECT_TRUE(press(ArrowDirection::up));
    EXPECT_EQ(view.selectedSearchResultIndex(), -1);
    EXPECT_TRUE(press(ArrowDirection::down));
    EXPECT_TRUE(press(ArrowDirection::down));
    EXPECT_TRUE(press(ArrowDirection::down));
    EXPECT_EQ(view.selectedSearchResultIndex(), 1);
    EXPECT_EQ(scrolls.size(), 2);
    EXPECT_TRUE(press(ArrowDirection::up));
    EXPECT_EQ(view.selectedSearchResultIndex(), 0);
    EXPECT_EQ(scrolls.size(), 3);
}

TEST_F(FloatingWindowViewTest, RowIsMarkedOnlyWhileThePanelHasTheArrowKeys)
{
    showPanel(2);
    press(ArrowDirection::down);
    EXPECT_EQ(view.selectedSearchResultIndex(), 0);
    EXPECT_EQ(view.results()->selectedIndex(), -1);
    pressTab();
    EXPECT_EQ(view.results()->selectedIndex(), 0);
    press(ArrowDirection::down);
    EXPECT_EQ(view.results()->selectedIndex(), 1);
}

TEST_F(FloatingWindowViewTest, UpFromTheFirstRowGivesTheKeyboardBack)
{
    showPanel(2);
    pressTab();
    scrolls.clear();
    EXPECT_TRUE(press(ArrowDirection::up));
    EXPECT_TRUE(view.isFocused());
    EXPECT_FALSE(view.searchResultsHaveFocus());
    EXPECT_EQ(view.selectedSearchResultIndex(), -1);
    EXPECT_TRUE(view.showSearchResults());
    EXPECT_TRUE(press(ArrowDirection::up)) << "the panel still has the key";
    EXPECT_TRUE(scrolls.isEmpty());
}

TEST_F(FloatingWindowViewTest, ArrowsAreTheEditorsWithoutAPanel)
{
    view.appear();
    write(QStringLiteral("garden"));
    EXPECT_FALSE(press(ArrowDirection::down));
    write(QStringLiteral("/"));
    EXPECT_TRUE(press(ArrowDirection::down)) << "the list has it";
    EXPECT_EQ(bench.state().fields().selectedCommand, Command::searchNotes);
}

TEST_F(FloatingWindowViewTest, TabGoesToThePanelOnceAndIsAlwaysUsed)
{
    view.appear();
    EXPECT_TRUE(pressTab());
    EXPECT_TRUE(scrolls.isEmpty());
    showPanel(2);
    EXPECT_TRUE(pressTab());
    EXPECT_TRUE(view.searchResultsHaveFocus());
    EXPECT_EQ(view.selectedSearchResultIndex(), 0);
    EXPECT_FALSE(view.isFocused());
    EXPECT_EQ(scrolls.size(), 1);
    press(ArrowDirection::down);
    EXPECT_TRUE(pressTab());
    EXPECT_EQ(view.selectedSearchResultIndex(), 1);
}

TEST_F(FloatingWindowViewTest, ReturnOpensTheSelectedNoteAndHasTheWindowHidden)
{
    showPanel(2);
    EXPECT_FALSE(pressReturn());
    press(ArrowDirection::down);
    press(ArrowDirection::down);
    EXPECT_TRUE(pressReturn());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !toggles.isEmpty(); }));
    EXPECT_THAT(openedUrls(), testing::ElementsAre(QStringLiteral("obsidian://open?path=/v/1.md")));
    EXPECT_EQ(toggles.size(), 1);
}

TEST_F(FloatingWindowViewTest, ClickOnARowOpensItsNote)
{
    showPanel(3);
    view.results()->tap(2);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !toggles.isEmpty(); }));
    EXPECT_THAT(openedUrls(), testing::ElementsAre(QStringLiteral("obsidian://open?path=/v/2.md")));
}

TEST_F(FloatingWindowViewTest, NothingSelectedOpensNothing)
{
    showPanel(2);
    view.openSelectedSearchResult();
    view.results()->tap(2);
    view.results()->tap(-1);
    QTest::qWait(10);
    EXPECT_TRUE(openedUrls().isEmpty());
    EXPECT_TRUE(toggles.isEmpty());
}

TEST_F(FloatingWindowViewTest, VaultThatIsUnsetWhileThePanelIsOpenKeepsTheNotesOpenable)
{
    showPanel(1);
    bench.settings.setObsidianFolderPath(std::nullopt);
    view.results()->tap(0);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !toggles.isEmpty(); }));
    write(QStringLiteral("/search_notes beans"));
    bench.advance(300);
    ASSERT_TRUE(QTest::qWaitFor([this] { return bench.toastCount() > 0; }));
    EXPECT_TRUE(view.showSearchResults());
}

TEST_F(FloatingWindowViewTest, ShortcutForANewNoteNamesTheLastTemplate)
{
    view.handleCommandShortcut(Command::newNote);
    EXPECT_EQ(bench.text(), QStringLiteral("/new_note  $Default "));
    EXPECT_TRUE(bench.forceTextUpdate());
    EXPECT_TRUE(view.isFocused());
    ASSERT_TRUE(bench.state().fields().currentTemplate);
    EXPECT_EQ(bench.state().fields().currentTemplate->name, QStringLiteral("Default"));
    EXPECT_FALSE(view.showDropdown());
    view.handleCommandShortcut(Command::newNote);
    EXPECT_EQ(bench.text(), QStringLiteral("/new_note  $Default  /new_note  $Default "));
}

TEST_F(FloatingWindowViewTest, ShortcutForANewNoteTrimsBlanksButNoLineEnds)
{
    bench.setText(QStringLiteral(" \t tea\n"));
    view.handleCommandShortcut(Command::newNote);
    EXPECT_EQ(bench.text(), QStringLiteral("tea\n /new_note  $Default "));
    bench.setText(QStringLiteral(" \n tea"));
    view.handleCommandShortcut(Command::newNote);
    EXPECT_EQ(bench.text(), QStringLiteral("\n tea /new_note  $Default "));
}

TEST_F(FloatingWindowViewTest, ShortcutForANewNoteTakesAnyTextAsItIs)
{
    bench.setText(QStringLiteral("100 %1 %2"));
    view.handleCommandShortcut(Command::newNote);
    EXPECT_EQ(bench.text(), QStringLiteral("100 %1 %2 /new_note  $Default "));
}

TEST_F(FloatingWindowViewTest, ShortcutForASearchComesBehindTheText)
{
    view.handleCommandShortcut(Command::searchNotes);
    EXPECT_EQ(bench.text(), QStringLiteral("/search_notes "));
    EXPECT_FALSE(bench.state().fields().currentTemplate);
    view.handleCommandShortcut(Command::searchNotes);
    EXPECT_EQ(bench.text(), QStringLiteral("/search_notes  /search_notes "));
}

TEST_F(FloatingWindowViewTest, ShortcutForTheRecentNotesTakesTheFieldAndRuns)
{
    QFile note(bench.vault.filePath(QStringLiteral("a.md")));
    ASSERT_TRUE(note.open(QIODevice::WriteOnly));
    view.appear();
    bench.setText(QStringLiteral("half a thought"));
    view.handleCommandShortcut(Command::recentNotes);
    EXPECT_EQ(bench.text(), QStringLiteral("/recent  $All Folders "));
    ASSERT_TRUE(QTest::qWaitFor([this] { return view.showSearchResults(); }));
    EXPECT_EQ(view.searchResults().size(), 1);
    EXPECT_EQ(bench.text(), QStringLiteral("/recent  $All Folders "));
}

TEST_F(FloatingWindowViewTest, OnlyACommandIsInserted)
{
    view.insertCommand(QVariant());
    view.insertCommand(QStringLiteral("/recent"));
    view.insertCommand(1);
    EXPECT_EQ(bench.text(), QString());
    view.insertCommand(QVariant::fromValue(Command::searchNotes));
    EXPECT_EQ(bench.text(), QStringLiteral("/search_notes "));
}

TEST_F(FloatingWindowViewTest, ButtonsOfTheRowRunTheirCommands)
{
    view.shortcuts()->select(2);
    EXPECT_EQ(bench.text(), QStringLiteral("/search_notes "));
    bench.setText(QStringLiteral("Call Ada /new_note"));
    EXPECT_TRUE(view.shortcuts()->showCreateNoteButton());
    view.shortcuts()->createNote();
    ASSERT_TRUE(QTest::qWaitFor([this] { return showsAccent(); }));
    EXPECT_EQ(bench.noteCount(), 1);
    EXPECT_FALSE(view.shortcuts()->showCreateNoteButton());
}

TEST_F(FloatingWindowViewTest, CommandThatFailsLateFlashesBehindItsSpring)
{
    bench.settings.setObsidianFolderPath(bench.vault.filePath(QStringLiteral("gone")));
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    bench.advance(100);
    EXPECT_EQ(view.springScale(), 1.0);
    EXPECT_TRUE(showsNothing());
    ASSERT_TRUE(QTest::qWaitFor([this] { return showsError(); }));
    EXPECT_EQ(view.springScale(), 1.0);
}

TEST_F(FloatingWindowViewTest, TapOnTheContentClosesAnOpenList)
{
    QSignalSpy changes(&bench.state(), &CommandTemplateState::changed);
    view.tapContent();
    EXPECT_TRUE(changes.isEmpty());
    write(QStringLiteral("/"));
    EXPECT_TRUE(view.showDropdown());
    view.tapContent();
    EXPECT_FALSE(view.showDropdown());
}

TEST_F(FloatingWindowViewTest, HeightIsToldWheneverItChanges)
{
    view.appear();
    QSignalSpy heights(&view, &FloatingWindowView::dynamicHeightChanged);
    write(QStringLiteral("/recent"));
    bench.deliver(1);
    EXPECT_EQ(view.dynamicHeight(), 484);
    EXPECT_EQ(heights.size(), 1);
    write(QStringLiteral("/recent /"));
    EXPECT_EQ(view.dynamicHeight(), 584);
    EXPECT_EQ(heights.size(), 2);
    write(QStringLiteral("/recent /n"));
    EXPECT_EQ(heights.size(), 2);
}
