#include "Views/WindowKeys.h"

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

constexpr quint64 shift = 0x20000;
constexpr quint64 control = 0x40000;
constexpr quint64 option = 0x80000;
constexpr quint64 command = 0x100000;
constexpr Hotkey hotkey{11, command | option};

KeyEvent keyDown(int keyCode, quint64 flags)
{
    return {10, keyCode, flags};
}

std::optional<Command> inserted(const WindowKeyAction& action)
{
    const auto* insert = std::get_if<InsertCommand>(&action);
    return insert ? std::optional(insert->command) : std::nullopt;
}

bool toggles(const KeyEvent& event, bool captureWindowIsKey, const Hotkey& its = hotkey)
{
    return std::holds_alternative<ToggleWindow>(actionFor(event, its, captureWindowIsKey));
}

struct Row {
    const char* name;
    KeyEvent key;
    std::optional<Command> inserts;
};

class CommandKeysTest : public testing::TestWithParam<Row> {};

const Row rows[] = {
    {"first", keyDown(18, command), Command::newNote},
    {"second", keyDown(19, command), Command::searchNotes},
    {"third", keyDown(20, command), Command::recentNotes},
    {"fourth", keyDown(21, command), {}},
    {"fifth", keyDown(23, command), {}},
    {"unknownPlace", keyDown(-1, command), {}},
    {"alone", keyDown(18, 0), {}},
    {"withShiftAlone", keyDown(18, shift), {}},
    {"withControlAlone", keyDown(18, control), {}},
    {"withOptionAlone", keyDown(18, option), {}},
    {"shift", keyDown(18, command | shift), Command::newNote},
    {"control", keyDown(18, command | control), Command::newNote},
    {"option", keyDown(18, command | option), Command::newNote},
    {"shiftAndControl", keyDown(18, command | shift | control), Command::newNote},
    {"shiftAndOption", keyDown(18, command | shift | option), Command::newNote},
    {"controlAndOption", keyDown(18, command | control | option), Command::newNote},
    {"allThree", keyDown(18, command | shift | control | option), {}},
    {"bitsThatDontCount", keyDown(18, command | 0x810108), Command::newNote},
    {"changeOfTheFlags", KeyEvent{12, 18, command}, {}},
};

std::string nameOfRow(const testing::TestParamInfo<Row>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, CommandKeysTest, testing::ValuesIn(rows), nameOfRow);

} // namespace

TEST_P(CommandKeysTest, InsertsItsCommandOrIsLeftToTheWindow)
{
    const auto action = actionFor(GetParam().key, hotkey, true);
    EXPECT_EQ(inserted(action), GetParam().inserts);
    EXPECT_EQ(std::holds_alternative<std::monostate>(action), !GetParam().inserts);
}

TEST_P(CommandKeysTest, IsLeftToAnyOtherWindow)
{
    const auto action = actionFor(GetParam().key, hotkey, false);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(action));
}

TEST(WindowKeysTest, EscapeTogglesFromTheCaptureWindowAlone)
{
    EXPECT_TRUE(toggles(keyDown(53, 0), true));
    EXPECT_TRUE(toggles(keyDown(53, shift), true));
    EXPECT_FALSE(toggles(keyDown(53, 0), false));
}

TEST(WindowKeysTest, HotkeyTogglesFromEveryWindow)
{
    EXPECT_TRUE(toggles(keyDown(11, command | option), true));
    EXPECT_TRUE(toggles(keyDown(11, command | option), false));
    EXPECT_TRUE(toggles(keyDown(11, command | option | 0x10000), false)) << "Caps Lock";
}

TEST(WindowKeysTest, HotkeyNeedsExactlyItsModifiers)
{
    EXPECT_FALSE(toggles(keyDown(11, command | option | shift), true));
    EXPECT_FALSE(toggles(keyDown(11, command), true));
    EXPECT_FALSE(toggles(keyDown(12, command | option), true));
    EXPECT_FALSE(toggles({12, 11, command | option}, true));
}

TEST(WindowKeysTest, HotkeyGoesBeforeACommand)
{
    EXPECT_TRUE(toggles(keyDown(18, command), true, {18, command}));
}
