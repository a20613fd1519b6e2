#include "Views/Editor/CustomTextEditorCoordinator.h"

#include "Views/Editor/EditorBench.h"

#include <QTextBlock>
#include <QTextLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::TestParamInfo;
using testing::TestWithParam;
using testing::ValuesIn;

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

template <typename Row>
std::string nameOf(const TestParamInfo<Row>& row)
{
    return row.param.name;
}

constexpr quint64 command = 1U << 20U;
constexpr quint64 otherModifiers = 1U << 17U | 1U << 18U | 1U << 19U | 1U << 21U;
constexpr int keyDown = 10;
constexpr int keyUp = 11;
constexpr int returnKey = 36;
constexpr int keypadEnter = 76;
constexpr int upKey = 126;

struct KeyRow {
    const char* name;
    const char16_t* selector;
    std::optional<CurrentEvent> event;
    const char16_t* call; ///< that it makes
    bool isAsked = true;  ///< the callback decides whether it is used
    friend void PrintTo(const KeyRow& row, std::ostream* out) { *out << row.name; }
};

const char16_t* const none = u"";
constexpr CurrentEvent commandReturn{keyDown, returnKey, command | otherModifiers};

// clang-format off
const KeyRow commandEnterRows[] = {
    {"newline", u"insertNewline:", commandReturn, u"onCommandEnter"},
    {"up", u"moveUp:", commandReturn, u"onCommandEnter"},
    {"down", u"moveDown:", commandReturn, u"onCommandEnter"},
    {"tab", u"insertTab:", commandReturn, u"onCommandEnter"},
    {"backspace", u"deleteBackward:", commandReturn, u"onCommandEnter"},
    {"unknown", u"noop:", commandReturn, u"onCommandEnter"},
    {"keypad", u"insertNewline:", CurrentEvent{keyDown, keypadEnter, command}, u"onCommandEnter"},
    {"newline_of_no_key", u"insertNewline:", CurrentEvent{keyUp, 0, command}, u"onCommandEnter"},
};

const KeyRow keyRows[] = {
    {"newline", u"insertNewline:", CurrentEvent{keyDown, returnKey, 0}, u"onEnterKey"},
    {"newline_without_event", u"insertNewline:", std::nullopt, u"onEnterKey"},
    {"newline_with_other_modifiers", u"insertNewline:", CurrentEvent{keyDown, returnKey, otherModifiers}, u"onEnterKey"},
    {"keypad", u"insertNewline:", CurrentEvent{keyDown, keypadEnter, 0}, u"onEnterKey"},
    {"up", u"moveUp:", CurrentEvent{keyDown, upKey, 0}, u"onArrowKey up"},
    {"up_with_command", u"moveUp:", CurrentEvent{keyDown, upKey, command}, u"onArrowKey up"},
    {"up_while_return_goes_up", u"moveUp:", CurrentEvent{keyUp, returnKey, command}, u"onArrowKey up"},
    {"up_with_keypad_enter", u"moveUp:", CurrentEvent{keyDown, keypadEnter, command}, u"onArrowKey up"},
    {"up_without_event", u"moveUp:", std::nullopt, u"onArrowKey up"},
    {"down", u"moveDown:", std::nullopt, u"onArrowKey down"},
    {"tab", u"insertTab:", std::nullopt, u"onTabKey"},
    {"backtab", u"insertBacktab:", std::nullopt, none, false},
    {"line_break", u"insertLineBreak:", std::nullopt, none, false},
    {"left", u"moveLeft:", std::nullopt, none, false},
    {"up_and_select", u"moveUpAndModifySelection:", std::nullopt, none, false},
    {"delete_forward", u"deleteForward:", std::nullopt, none, false},
    {"no_selector", u"", std::nullopt, none, false},
};
// clang-format on

class CommandEnterTest : public TestWithParam<KeyRow> {
protected:
    EditorBench bench;
};

TEST_P(CommandEnterTest, ComesBeforeEverythingAndIsUsed)
{
    bench.make(of(u"/recent"));
    EXPECT_TRUE(bench.coordinator().doCommandBy(GetParam().selector, GetParam().event));
    EXPECT_THAT(bench.calls, ElementsAre(of(GetParam().call)));
    EXPECT_EQ(bench.view().string(), of(u"/recent"));
}

TEST_P(CommandEnterTest, IsUsedAlsoIfNobodyListens)
{
    bench.bindings.onCommandEnter = nullptr;
    bench.make(of(u"/recent"));
    EXPECT_TRUE(bench.coordinator().doCommandBy(GetParam().selector, GetParam().event));
    EXPECT_THAT(bench.calls, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Keys, CommandEnterTest, ValuesIn(commandEnterRows), nameOf<KeyRow>);

class KeyTest : public TestWithParam<KeyRow> {
protected:
    bool doCommand()
    {
        return bench.coordinator().doCommandBy(GetParam().selector, GetParam().event);
    }

    EditorBench bench;
};

TEST_P(KeyTest, IsUsedIfTheCallbackSaysSo)
{
    bench.make();
    bench.usesKeys = true;
    EXPECT_EQ(doCommand(), GetParam().isAsked);
    EXPECT_EQ(bench.takeCalls().join(u'\n'), of(GetParam().call));
}

TEST_P(KeyTest, IsLeftIfTheCallbackHasNoUseForIt)
{
    bench.make();
    EXPECT_FALSE(doCommand());
    EXPECT_EQ(bench.takeCalls().join(u'\n'), of(GetParam().call));
}

TEST_P(KeyTest, IsLeftIfNobodyListens)
{
    bench.bindings.onEnterKey = nullptr;
    bench.bindings.onArrowKey = nullptr;
    bench.bindings.onTabKey = nullptr;
    bench.make();
    bench.usesKeys = true;
    EXPECT_FALSE(doCommand());
    EXPECT_THAT(bench.calls, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyTest, ValuesIn(keyRows), nameOf<KeyRow>);

struct BackspaceRow {
    const char* name;
    const char16_t* text;
    TextRange selection;
    const char16_t* left; ///< of the text; null if nothing is deleted as one
    qsizetype cursor = 0;
    friend void PrintTo(const BackspaceRow& row, std::ostream* out) { *out << row.name; }
};

const BackspaceRow backspaceRows[] = {
    {"right_behind", u"x /recent", {9, 0}, u"x ", 2},
    {"inside", u"x /recent y", {5, 0}, u"x  y", 2},
    {"at_the_start", u"x /recent", {2, 0}, u"x ", 2},
    {"behind_a_blank", u"/recent ", {8, 0}, nullptr},
    {"before_it", u"x /recent", {1, 0}, nullptr},
    {"with_a_selection", u"/recent", {0, 7}, nullptr},
    {"with_a_selection_of_one", u"/recent", {6, 1}, nullptr},
    {"within_a_word", u"and/or", {6, 0}, u"and", 3},
    {"last_of_a_path", u"/a/b/c", {6, 0}, u"/a/b", 4},
    {"between_two_of_a_path", u"/a/b/c", {4, 0}, u"/a/b", 4},
    {"first_of_a_path", u"/a/b/c", {1, 0}, u"/b/c", 0},
    {"slash_alone", u"x /", {3, 0}, nullptr},
    {"with_a_hyphen", u"/new-note!", {9, 0}, u"!", 0},
    {"in_another_line", u"/one\n/two", {9, 0}, u"/one\n", 5},
    {"in_a_line_behind_crlf", u"a\r\n/two", {7, 0}, nullptr},
    {"in_a_line_behind_crlf_and_more", u"a\r\n/two more", {7, 0}, u"a\r\n more", 3},
    {"empty", u"", {0, 0}, nullptr},
    // The number of characters limits the units that are looked at.
    {"cut_by_one_emoji", u"\U0001F600/recent", {9, 0}, nullptr},
    {"inside_cut_by_one_emoji", u"\U0001F600/recent", {8, 0}, u"\U0001F600t", 2},
    {"out_of_the_limit", u"\U0001F600\U0001F600\U0001F600/ab", {9, 0}, nullptr},
};

class BackspaceTest : public TestWithParam<BackspaceRow> {
protected:
    EditorBench bench;
};

TEST_P(BackspaceTest, DeletesASlashWordAsOne)
{
    const BackspaceRow& row = GetParam();
    bench.makeStyled(of(row.text));
    bench.calls.clear();
    bench.view().setSelectedRange(row.selection);
    const bool isUsed = row.left != nullptr;
    const QString left = of(isUsed ? row.left : row.text);
    EXPECT_EQ(bench.coordinator().doCommandBy(u"deleteBackward:", {}), isUsed);
    EXPECT_EQ(bench.view().string(), left);
    EXPECT_EQ(bench.text, left);
    EXPECT_EQ(bench.takeCalls(),
              isUsed ? QStringList(QStringLiteral("onTextChange ") + left) : QStringList());
    EXPECT_EQ(bench.view().selectedRange(), isUsed ? TextRange({row.cursor, 0}) : row.selection);
}

INSTANTIATE_TEST_SUITE_P(Texts, BackspaceTest, ValuesIn(backspaceRows), nameOf<BackspaceRow>);

class CustomTextEditorCoordinatorTest : public testing::Test {
protected:
    EditorBench bench;
};

TEST_F(CustomTextEditorCoordinatorTest, BackspaceIsOneStepToUndo)
{
    bench.makeStyled(of(u"x /recent"));
    ASSERT_TRUE(bench.coordinator().handleCommandBackspace());
    bench.document.undo();
    EXPECT_EQ(bench.view().string(), of(u"x /recent"));
}

TEST_F(CustomTextEditorCoordinatorTest, BackspaceTakesTheChipAwayOnALaterTurn)
{
    bench.makeStyled(of(u"/one /two"));
    bench.view().setSelectedRange({4, 0});
    ASSERT_TRUE(bench.coordinator().handleCommandBackspace());
    EXPECT_EQ(bench.view().commandRanges().size(), 2U);
    bench.nextTurn();
    EXPECT_THAT(bench.view().commandRanges(), ElementsAre(TextRange{1, 4}));
}

TEST_F(CustomTextEditorCoordinatorTest, BackspaceNeedsNoListener)
{
    bench.bindings.onTextChange = nullptr;
    bench.makeStyled(of(u"/recent"));
    EXPECT_TRUE(bench.coordinator().handleCommandBackspace());
    EXPECT_EQ(bench.text, QString());
}

TEST_F(CustomTextEditorCoordinatorTest, EditingBeginsAndEnds)
{
    bench.make();
    EXPECT_FALSE(bench.coordinator().isEditing());
    bench.coordinator().textDidBeginEditing();
    EXPECT_TRUE(bench.coordinator().isEditing());
    bench.coordinator().textDidEndEditing();
    EXPECT_FALSE(bench.coordinator().isEditing());
    EXPECT_THAT(bench.calls, IsEmpty());
}

TEST_F(CustomTextEditorCoordinatorTest, ChipsAreStoredOnALaterTurn)
{
    bench.make();
    bench.type(of(u"/new_note $Daily Note /recent $Inbox #tag"));
    EXPECT_THAT(bench.view().commandRanges(), IsEmpty());
    EXPECT_THAT(bench.view().templateRanges(), IsEmpty());
    EXPECT_THAT(bench.view().hashtagRanges(), IsEmpty());
    bench.nextTurn();
    EXPECT_THAT(bench.view().commandRanges(), ElementsAre(TextRange{0, 9}, TextRange{22, 7}));
    EXPECT_THAT(bench.view().templateRanges(), ElementsAre(TextRange{10, 11}, TextRange{30, 6}));
    EXPECT_THAT(bench.view().hashtagRanges(), ElementsAre(TextRange{37, 4}));
}

TEST_F(CustomTextEditorCoordinatorTest, TheLastChipsAreStoredOnceATurn)
{
    bench.make();
    int displays = 0;
    QObject::connect(&bench.view(), &RoundedBackgroundTextView::needsDisplay,
                     [&displays] { ++displays; });
    bench.type(of(u"/recent"));
    bench.type(of(u"!"));
    bench.type(of(u" /more"));
    bench.nextTurn();
    EXPECT_EQ(displays, 1);
    EXPECT_THAT(bench.view().commandRanges(), ElementsAre(TextRange{0, 7}, TextRange{9, 5}));
    bench.type(of(u" /again"));
    bench.nextTurn();
    EXPECT_EQ(bench.view().commandRanges().size(), 3U);
}

TEST_F(CustomTextEditorCoordinatorTest, NamesAreAskedForAtEachChange)
{
    bench.make();
    bench.type(of(u"/new_note $Weekly"));
    bench.nextTurn();
    EXPECT_THAT(bench.view().templateRanges(), IsEmpty());
    bench.templates.append(of(u"Weekly"));
    bench.type(of(u" "));
    bench.nextTurn();
    EXPECT_THAT(bench.view().templateRanges(), ElementsAre(TextRange{10, 7}));
}

TEST_F(CustomTextEditorCoordinatorTest, TheTextIsStyledWhenTheModelIsTold)
{
    QList<QTextLayout::FormatRange> formats;
    bench.bindings.onTextChange = [&] {
        formats = bench.document.firstBlock().layout()->formats();
    };
    bench.make();
    bench.type(of(u"a **b**"));
    ASSERT_EQ(formats.size(), 1);
    EXPECT_EQ(formats.first().start, 2);
    EXPECT_EQ(formats.first().length, 5);
    EXPECT_EQ(formats.first().format.fontWeight(), QFont::Bold);
}

TEST_F(CustomTextEditorCoordinatorTest, EmojiHaveTheirFont)
{
    bench.make();
    bench.type(of(u"a\U0001F600"));
    const auto formats = bench.document.firstBlock().layout()->formats();
    ASSERT_EQ(formats.size(), 1);
    EXPECT_EQ(formats.first().start, 1);
    EXPECT_EQ(formats.first().length, 2);
}

TEST_F(CustomTextEditorCoordinatorTest, ItIsTellingOnlyWhileItTells)
{
    bool isTelling = false;
    bench.bindings.onTextChange = [&] { isTelling = bench.coordinator().isTelling(); };
    bench.make();
    bench.type(of(u"a"));
    EXPECT_TRUE(isTelling);
    EXPECT_FALSE(bench.coordinator().isTelling());
}

} // namespace

} // namespace jotwell
