#include "Views/Settings/ShortcutKeys.h"

#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Keys {
    const char* name;
    int first;
    const char* texts; ///< of that key code and those after it, apart by blanks; "_" for none
};

struct Spelling {
    const char* name;
    Hotkey shortcut;
    const char* text;
    const char* keys; ///< apart by blanks
};

class KeyTexts : public testing::TestWithParam<Keys> {};
class ShortcutSpellings : public testing::TestWithParam<Spelling> {};

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

const QString control = QStringLiteral("⌃");
const QString option = QStringLiteral("⌥");
const QString command = QStringLiteral("⌘");
const QString shift = QStringLiteral("⇧");
const QString b = QStringLiteral("B");

} // namespace

TEST_P(KeyTexts, StandByKeyCode)
{
    int keyCode = GetParam().first;
    for (const QString& text : words(GetParam().texts)) {
        const auto expected = text == QLatin1String("_") ? std::nullopt : std::optional(text);
        EXPECT_EQ(keyStringFromKeyCode(keyCode), expected) << keyCode;
        ++keyCode;
    }
}

INSTANTIATE_TEST_SUITE_P(
    , KeyTexts,
    testing::Values(
        Keys{"None", -2, "_ _"}, Keys{"FirstLetters", 0, "A S D F H G Z X C V _"},
        Keys{"UpperLetters", 11, "B Q W E R Y T"}, Keys{"Digits", 18, "1 2 3 4 6 5 = 9 7 - 8 0"},
        Keys{"RightLetters", 30, "] O U [ I P Return"},
        Keys{"LastLetters", 37, "L J ' K ; \\ , / N M ."},
        Keys{"Edges", 48, "Tab Space ` Delete _ Escape"},
        Keys{"Modifiers", 54, "_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _"},
        Keys{"Clear", 71, "Clear _ _ _ _ Enter"},
        Keys{"Keypad", 77, "_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _"},
        Keys{"FunctionKeys", 96, "F5 F6 F7 F3 F8 F9 _ F11 _ F13 F16 F14 _ F10 _ F12 _ F15"},
        Keys{"Help", 114, "Help Home"}, Keys{"ForwardDelete", 117, "Delete F4 End F2"},
        Keys{"FirstFunctionKey", 122, "F1"}, Keys{"Arrows", 123, "Left Right Down Up _ _"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ShortcutKeys, PageKeysHaveTwoWords)
{
    EXPECT_EQ(keyStringFromKeyCode(116), QStringLiteral("Page Up"));
    EXPECT_EQ(keyStringFromKeyCode(121), QStringLiteral("Page Down"));
}

TEST(ShortcutKeys, HugeKeyCodesHaveNoText)
{
    EXPECT_EQ(keyStringFromKeyCode(std::numeric_limits<qint64>::max()), std::nullopt);
    EXPECT_EQ(keyStringFromKeyCode(std::numeric_limits<qint64>::min()), std::nullopt);
}

TEST_P(ShortcutSpellings, AreThoseOfBitsAndKey)
{
    const auto& [name, shortcut, text, keys] = GetParam();
    EXPECT_EQ(shortcutString(shortcut), QString::fromUtf8(text));
    EXPECT_EQ(shortcutStringToKeys(QString::fromUtf8(text)), words(keys));
}

INSTANTIATE_TEST_SUITE_P(
    , ShortcutSpellings,
    testing::Values(Spelling{"Default", {11, 0x180000}, "⌥⌘B", "⌥ ⌘ B"},
                    Spelling{"AllModifiersInOrder", {40, 0x1E0000}, "⌃⌥⌘⇧K", "⌃ ⌥ ⌘ ⇧ K"},
                    Spelling{"Control", {11, 0x40000}, "⌃B", "⌃ B"},
                    Spelling{"Option", {11, 0x80000}, "⌥B", "⌥ B"},
                    Spelling{"Command", {11, 0x100000}, "⌘B", "⌘ B"},
                    Spelling{"Shift", {11, 0x20000}, "⇧B", "⇧ B"},
                    Spelling{
                        "OtherBitsDoNotCount", {11, 0x1000000 | 0x10100 | 0x100000}, "⌘B", "⌘ B"},
                    Spelling{"KeyOfCodeZero", {0, 0x100000}, "⌘A", "⌘ A"},
                    Spelling{"KeyWithoutText", {104, 0x100000}, "⌘", "⌘"},
                    Spelling{"KeyWithText", {105, 0x100000}, "⌘F13", "⌘ F13"},
                    Spelling{"NoModifier", {49, 0}, "Space", "Space"},
                    Spelling{"Nothing", {10, 0}, "", ""}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ShortcutKeys, CapsStandInTheFixedOrderWhateverTheTextHas)
{
    EXPECT_THAT(shortcutStringToKeys(QStringLiteral("B⇧⌘⌃⌥⌘ C")),
                ElementsAre(control, option, command, shift, QStringLiteral("B C")));
}

TEST(ShortcutKeys, TextOfTwoWordsIsOneCap)
{
    EXPECT_THAT(shortcutStringToKeys(QStringLiteral("⌘Page Up")),
                ElementsAre(command, QStringLiteral("Page Up")));
}

TEST(ShortcutKeys, RecordedKeyOfCodeZeroIsNone)
{
    EXPECT_THAT(recordedShortcutKeys({0, 0x100000}), ElementsAre(command));
    EXPECT_THAT(recordedShortcutKeys({0, 0}), IsEmpty());
    EXPECT_THAT(recordedShortcutKeys({-1, 0x20000}), ElementsAre(shift));
    EXPECT_THAT(recordedShortcutKeys({1, 0}), ElementsAre(QStringLiteral("S")));
}

TEST(ShortcutKeys, RecordedKeyWithoutATextShowsItsModifiers)
{
    EXPECT_THAT(recordedShortcutKeys({104, 0x180000}), ElementsAre(option, command));
    EXPECT_THAT(recordedShortcutKeys({11, 0x1C0000}), ElementsAre(control, option, command, b));
}

TEST(ShortcutKeys, HotkeyNeedsAKeyAndAModifier)
{
    EXPECT_TRUE(isValidShortcut({1, 0x20000}));
    EXPECT_TRUE(isValidShortcut({104, 0x100000}));
    EXPECT_FALSE(isValidShortcut({0, 0x100000}));
    EXPECT_FALSE(isValidShortcut({-1, 0x100000}));
    EXPECT_FALSE(isValidShortcut({11, 0}));
    EXPECT_FALSE(isValidShortcut({11, 0x10000})) << "Caps Lock is no modifier";
}

TEST(ShortcutKeys, TabAndEscapeAndUnknownKeysAreNotRecorded)
{
    for (const int keyCode : {48, 53, -1})
        EXPECT_FALSE(isRecordable(keyCode)) << keyCode;
    for (const int keyCode : {0, 11, 36, 49, 104, 127})
        EXPECT_TRUE(isRecordable(keyCode)) << keyCode;
}
