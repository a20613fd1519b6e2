#include "Services/InputFixture.h"

#include <limits>

namespace jotwell {

namespace {

struct StaleRow {
    const char* name;
    TextRange range;
    QString text; ///< that "ab😀" becomes
};

class StaleRange : public CommandTemplateStateTest, public testing::WithParamInterface<StaleRow> {};

const StaleRow staleRows[] = {
    {"BehindTheEnd", {9, 4}, u"ab\U0001f600#work"_qs},
    {"BeyondTheEnd", {1, 400}, u"a#work"_qs},
    {"BeforeTheStart", {-5, 2}, u"#workab\U0001f600"_qs},
    {"AcrossTheStart", {-5, 6}, u"#workb\U0001f600"_qs},
    {"InsideAPair", {3, 0}, u"ab\U0001f600#work"_qs},
    {"SecondHalfOfAPair", {3, 1}, u"ab\U0001f600#work"_qs},
    {"FirstHalfOfAPair", {1, 2}, u"a#work\U0001f600"_qs},
    {"NegativeLength", {1, -4}, u"a#workb\U0001f600"_qs},
    {"LargestNumbers",
     {std::numeric_limits<qsizetype>::max(), std::numeric_limits<qsizetype>::max()},
     u"ab\U0001f600#work"_qs},
};

TEST_P(StaleRange, LosesNothingElse)
{
    state->setText(u"ab\U0001f600"_qs);
    state->handleHashtagClick(GetParam().range);
    state->selectItem(HashtagItem{u"work"_qs, 1});
    EXPECT_EQ(state->text(), GetParam().text);
}

TEST_P(StaleRange, OfACommandOrAParameterDoesNoHarm)
{
    state->setText(u"ab\U0001f600"_qs);
    state->handleCommandClick(GetParam().range);
    state->selectItem(Command::searchNotes);
    EXPECT_TRUE(state->text().contains(u"/search_notes"_qs));
    state->setText(u"ab\U0001f600"_qs);
    state->handleTemplateClick(GetParam().range);
    state->selectItem(ObsidianTemplate{QUuid(), u"work"_qs, {}, true, {}});
    EXPECT_EQ(state->text(), QString(GetParam().text).replace(u'#', u'$'));
}

INSTANTIATE_TEST_SUITE_P(Rows, StaleRange, testing::ValuesIn(staleRows),
                         [](const auto& row) { return std::string(row.param.name); });

using InputClickedRangeTest = CommandTemplateStateTest;

TEST_F(InputClickedRangeTest, ClickedCommandBecomesANewNoteWithItsParameter)
{
    state->setText(u"/recent  $Daily Note b"_qs);
    state->handleCommandClick({0, 7});
    state->selectItem(Command::newNote);
    EXPECT_EQ(state->text(), u"/new_note   $Daily Note b"_qs) << "the user's own parameter stays";
    EXPECT_EQ(state->fields().clickedCommandRange, std::nullopt);
    state->setText(u"/recent  b "_qs);
    state->handleCommandClick({0, 7});
    state->selectItem(Command::newNote);
    EXPECT_EQ(state->text(), u"/new_note  $Daily Note b"_qs);
}

TEST_F(InputClickedRangeTest, ClickedTokenIsReplacedThoughAnotherIsBeingTyped)
{
    state->setText(u"/recent $In $Wo"_qs);
    ASSERT_EQ(state->getCurrentFolderInput(), u"$Wo"_qs);
    state->handleTemplateClick({8, 3});
    state->selectItem(FolderItem{u"Inbox"_qs});
    EXPECT_EQ(state->text(), u"/recent $Inbox $Wo"_qs);
    state->setText(u"/new_note $x $y"_qs);
    ASSERT_EQ(state->getCurrentTemplateInput(), u"$y"_qs);
    state->handleTemplateClick({10, 2});
    state->selectItem(settings.obsidianTemplates().first());
    EXPECT_EQ(state->text(), u"/new_note $Daily Note $y"_qs);
    state->setText(u"/ne /re"_qs);
    state->handleCommandClick({0, 3});
    state->selectItem(Command::searchNotes);
    EXPECT_EQ(state->text(), u"/search_notes  /re"_qs);
}

TEST_F(InputClickedRangeTest, ClickedTagKeepsItsPlaceWhileTheListStaysOpen)
{
    type(u"note #tasks"_qs);
    state->handleHashtagClick({5, 6});
    type(u"a note #tasks"_qs);
    EXPECT_EQ(state->fields().clickedHashtagRange, TextRange({5, 6}));
    state->selectItem(HashtagItem{u"work"_qs, 1});
    EXPECT_EQ(state->text(), u"a not#workks"_qs);
}

TEST_F(InputClickedRangeTest, ClickedTagIsForgottenWhenTheListCloses)
{
    type(u"note #tasks"_qs);
    state->handleHashtagClick({5, 6});
    type(u"note #tasks "_qs);
    EXPECT_EQ(state->fields().clickedHashtagRange, std::nullopt);
    type(u"note #tasks #wo"_qs);
    state->handleEnterKey();
    EXPECT_EQ(state->text(), u"note #tasks #work "_qs);
}

TEST_F(InputClickedRangeTest, ParameterClickKeepsAClickedTag)
{
    state->handleHashtagClick({1, 1});
    state->handleTemplateClick({2, 2});
    EXPECT_EQ(state->fields().clickedHashtagRange, TextRange({1, 1}));
    EXPECT_NE(state->fields().selectedHashtag, std::nullopt);
}

} // namespace

} // namespace jotwell
