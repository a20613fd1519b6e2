#include "Views/CommandShortcutsRow.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::ElementsAre;

const QList<ShortcutCommand> allButtons{
    {Command::newNote, 1}, {Command::searchNotes, 2}, {Command::recentNotes, 3}};
const QList<ShortcutCommand> buttonsBesideCreateNote = allButtons.sliced(1);

struct Case {
    const char* name;
    const char* text;
    bool showsCreateNote;
};

class CommandShortcutsRowTexts : public testing::TestWithParam<Case> {};

class CommandShortcutsRowTest : public testing::Test {
protected:
    QStringList texts() const
    {
        QStringList all;
        for (int row = 0; row < view.rowCount(); ++row)
            all.append(view.index(row).data(CommandShortcutsRow::text).toString());
        return all;
    }

    CommandShortcutsRow view;
    QAbstractItemModelTester tester{&view, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy changes{&view, &CommandShortcutsRow::showCreateNoteButtonChanged};
    QSignalSpy resets{&view, &QAbstractItemModel::modelReset};
};

} // namespace

TEST_P(CommandShortcutsRowTexts, DecideOnTheButtons)
{
    const QString text = QString::fromUtf8(GetParam().text);
    const bool shows = GetParam().showsCreateNote;
    EXPECT_EQ(CommandShortcutsRow::showCreateNoteButton(text), shows);
    EXPECT_EQ(CommandShortcutsRow::shortcutButtons(text),
              shows ? buttonsBesideCreateNote : allButtons);
    CommandShortcutsRow view;
    view.setCurrentText(text);
    EXPECT_EQ(view.showCreateNoteButton(), shows);
    EXPECT_EQ(view.rowCount(), shows ? 2 : 3);
}

INSTANTIATE_TEST_SUITE_P(
    , CommandShortcutsRowTexts,
    testing::Values(Case{"Empty", "", false}, Case{"Words", "a thought", false},
                    Case{"TheCommand", "/new_note", true},
                    Case{"InTheMiddle", "before /new_note behind", true},
                    Case{"InALongerWord", "x/new_notebook", true},
                    Case{"OverTwoLines", "first\n/new_note\nlast", true},
                    Case{"OtherCase", "/New_Note", false}, Case{"WithoutSlash", "new_note", false},
                    Case{"Unfinished", "/new_not", false}, Case{"Parted", "/new_ note", false},
                    Case{"Search", "/search_notes words", false}, Case{"Recent", "/recent", false},
                    Case{"AllCommands", "/search_notes /recent /new_note", true}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(CommandShortcutsRowTest, CommandsAreNumberedInTheirOrder)
{
    EXPECT_EQ(CommandShortcutsRow::shortcutCommands(), allButtons);
}

TEST_F(CommandShortcutsRowTest, RowsTellWhatAButtonShows)
{
    ASSERT_EQ(view.rowCount(), 3);
    const QModelIndex second = view.index(1);
    EXPECT_EQ(second.data(CommandShortcutsRow::shortcutNumber).toInt(), 2);
    EXPECT_EQ(second.data(CommandShortcutsRow::icon).toString(), QStringLiteral("🔍"));
    EXPECT_EQ(second.data(CommandShortcutsRow::text).toString(), QStringLiteral("/search_notes"));
    EXPECT_FALSE(second.data(Qt::DisplayRole).isValid());
    EXPECT_EQ(view.rowCount(second), 0);
    EXPECT_EQ(view.roleNames().size(), 3);
}

TEST_F(CommandShortcutsRowTest, TellsOnlyOfChanges)
{
    view.setCurrentText(QStringLiteral("a"));
    view.setCurrentText(QStringLiteral("ab"));
    EXPECT_EQ(changes.size(), 0);
    view.setCurrentText(QStringLiteral("ab /new_note"));
    view.setCurrentText(QStringLiteral("ab /new_note c"));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_THAT(texts(), ElementsAre(QStringLiteral("/search_notes"), QStringLiteral("/recent")));
    view.setCurrentText({});
    EXPECT_EQ(changes.size(), 2);
    EXPECT_THAT(texts(), ElementsAre(QStringLiteral("/new_note"), QStringLiteral("/search_notes"),
                                     QStringLiteral("/recent")));
}

TEST_F(CommandShortcutsRowTest, OtherButtonsStayTheSameOnes)
{
    const QPersistentModelIndex search = view.index(1);
    view.setCurrentText(QStringLiteral("/new_note"));
    EXPECT_EQ(search.row(), 0);
    view.setCurrentText({});
    EXPECT_EQ(search.row(), 1);
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(CommandShortcutsRowTest, SelectsByNumber)
{
    std::vector<Command> selected;
    QObject::connect(&view, &CommandShortcutsRow::commandSelected, &view,
                     [&](Command command) { selected.push_back(command); });
    for (const int number : {3, 0, 1, -1, 2, 4})
        view.select(number);
    EXPECT_THAT(selected,
                ElementsAre(Command::recentNotes, Command::newNote, Command::searchNotes));
}

TEST_F(CommandShortcutsRowTest, AsksForANote)
{
    const QSignalSpy requests(&view, &CommandShortcutsRow::createNoteRequested);
    view.createNote();
    EXPECT_EQ(requests.size(), 1);
}
