#include "Views/WindowKeys.h"

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

constexpr auto control = Qt::ControlModifier;
constexpr auto shift = Qt::ShiftModifier;
constexpr auto super = Qt::MetaModifier;
constexpr auto option = Qt::AltModifier;

struct Row {
    const char* name;
    WindowKey key;
    std::optional<Command> inserts;
};

class CommandKeysTest : public testing::TestWithParam<Row> {};

// A French keyboard: the digits need Shift, and their keys mean other characters.
const Row rows[] = {
    {"first", {Qt::Key_1, 18, control}, Command::newNote},
    {"second", {Qt::Key_2, 19, control}, Command::searchNotes},
    {"third", {Qt::Key_3, 20, control}, Command::recentNotes},
    {"fourth", {Qt::Key_4, 21, control}, {}},
    {"fifth", {Qt::Key_5, 23, control}, {}},
    {"firstOfAFrenchKeyboard", {Qt::Key_Ampersand, 18, control}, Command::newNote},
    {"otherPlaceThatMeansTheDigit", {Qt::Key_1, 83, control}, {}},
    {"unknownPlace", {Qt::Key_1, std::nullopt, control}, {}},
    {"alone", {Qt::Key_1, 18, Qt::NoModifier}, {}},
    {"withShiftAlone", {Qt::Key_Exclam, 18, shift}, {}},
    {"withSuperAlone", {Qt::Key_1, 18, super}, {}},
    {"withOptionAlone", {Qt::Key_1, 18, option}, {}},
    {"shift", {Qt::Key_Exclam, 18, control | shift}, Command::newNote},
    {"super", {Qt::Key_1, 18, control | super}, Command::newNote},
    {"option", {Qt::Key_1, 18, control | option}, Command::newNote},
    {"shiftAndSuper", {Qt::Key_Exclam, 18, control | shift | super}, Command::newNote},
    {"shiftAndOption", {Qt::Key_Exclam, 18, control | shift | option}, Command::newNote},
    {"superAndOption", {Qt::Key_1, 18, control | super | option}, Command::newNote},
    {"allThree", {Qt::Key_Exclam, 18, control | shift | super | option}, {}},
    {"thirdLevel", {Qt::Key_2, 19, Qt::GroupSwitchModifier}, {}},
    {"thirdLevelWithControl", {Qt::Key_2, 19, control | Qt::GroupSwitchModifier}, {}},
    {"digitOfTheKeypad", {Qt::Key_1, 83, control | Qt::KeypadModifier}, {}},
};

std::string nameOfRow(const testing::TestParamInfo<Row>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, CommandKeysTest, testing::ValuesIn(rows), nameOfRow);

} // namespace

TEST_P(CommandKeysTest, InsertsItsCommandOrIsLeftToTheContent)
{
    const auto action = actionFor(GetParam().key);
    const auto* insert = std::get_if<InsertCommand>(&action);
    EXPECT_EQ(insert ? std::optional(insert->command) : std::nullopt, GetParam().inserts);
    EXPECT_EQ(std::holds_alternative<std::monostate>(action), !GetParam().inserts);
}

TEST(WindowKeysTest, EscapeToggles)
{
    EXPECT_TRUE(std::holds_alternative<ToggleWindow>(actionFor({Qt::Key_Escape, 53, {}})));
    EXPECT_TRUE(std::holds_alternative<ToggleWindow>(actionFor({Qt::Key_Escape, {}, {}})));
}
