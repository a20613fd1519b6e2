#include "Platform/linux/PcKeys.h"

#include "Platform/linux/HotkeyText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include <xkbcommon/xkbcommon.h>

using namespace jotwell;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr quint32 firstScanCode = 8;
constexpr quint32 lastScanCode = 1000;

struct KeyRow {
    const char* name;
    quint32 evdevCode;
    int keyCode;
    const char* keysym;
};

class Key : public testing::TestWithParam<KeyRow> {};

// By the numbers, which are written down once more.
const KeyRow keyRows[] = {
    {"A", 30, 0, "a"},
    {"B", 48, 11, "b"},
    {"Z", 44, 6, "z"},
    {"Y", 21, 16, "y"},
    {"Q", 16, 12, "q"},
    {"One", 2, 18, "1"},
    {"Two", 3, 19, "2"},
    {"Three", 4, 20, "3"},
    {"Four", 5, 21, "4"},
    {"Five", 6, 23, "5"},
    {"Six", 7, 22, "6"},
    {"Zero", 11, 29, "0"},
    {"Minus", 12, 27, "minus"},
    {"Escape", 1, 53, "Escape"},
    {"Return", 28, 36, "Return"},
    {"Tab", 15, 48, "Tab"},
    {"Space", 57, 49, "space"},
    {"Backspace", 14, 51, "BackSpace"},
    {"Delete", 111, 117, "Delete"},
    {"KeypadEnter", 96, 76, "KP_Enter"},
    {"KeypadFive", 76, 87, "KP_5"},
    {"F1", 59, 122, "F1"},
    {"F12", 88, 111, "F12"},
    {"Left", 105, 123, "Left"},
    {"Up", 103, 126, "Up"},
    {"PageDown", 109, 121, "Page_Down"},
    {"LessBesideShift", 86, 10, "less"},
};

TEST_P(Key, IsKnownByItsPlace)
{
    EXPECT_EQ(keyCodeOfScanCode(GetParam().evdevCode + firstScanCode), GetParam().keyCode);
    EXPECT_THAT(scanCodesOfKeyCode(GetParam().keyCode),
                ElementsAre(GetParam().evdevCode + firstScanCode));
    EXPECT_EQ(keysymNameOf(GetParam().keyCode).toStdString(), GetParam().keysym);
}

INSTANTIATE_TEST_SUITE_P(Rows, Key, testing::ValuesIn(keyRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST(PcKeysTest, KeyThatNoKeyboardHasIsNowhere)
{
    EXPECT_EQ(keyCodeOfScanCode(0), std::nullopt);
    EXPECT_EQ(keyCodeOfScanCode(firstScanCode), std::nullopt);
    EXPECT_EQ(keyCodeOfScanCode(0xffffffff), std::nullopt);
    for (const qint64 keyCode :
         {Q_INT64_C(-1), Q_INT64_C(52), Q_INT64_C(127), Q_INT64_C(1) << 32}) {
        EXPECT_THAT(scanCodesOfKeyCode(keyCode), IsEmpty()) << keyCode;
        EXPECT_TRUE(keysymNameOf(keyCode).isEmpty()) << keyCode;
    }
}

TEST(PcKeysTest, EachScanCodeIsOneKeyAndComesBackAsItself)
{
    std::set<int> keyCodes;
    for (quint32 scanCode = 0; scanCode < lastScanCode; ++scanCode) {
        const auto keyCode = keyCodeOfScanCode(scanCode);
        if (!keyCode)
            continue;
        keyCodes.insert(*keyCode);
        EXPECT_THAT(scanCodesOfKeyCode(*keyCode), testing::Contains(scanCode));
    }
    for (const int keyCode : keyCodes) {
        for (const quint32 scanCode : scanCodesOfKeyCode(keyCode))
            EXPECT_EQ(keyCodeOfScanCode(scanCode), keyCode);
    }
}

TEST(PcKeysTest, EveryKeyWithATextHasAPlace)
{
    const auto hasText = [](int code) {
        return code <= 126 && code != 10 && code != 52 && !(code >= 54 && code <= 70) &&
               !(code >= 72 && code <= 75) && !(code >= 77 && code <= 95) && code != 102 &&
               code != 104 && code != 108 && code != 110 && code != 112;
    };
    for (int keyCode = 0; keyCode <= 126; ++keyCode) {
        EXPECT_TRUE(!hasText(keyCode) || !scanCodesOfKeyCode(keyCode).empty()) << keyCode;
    }
}

// All that a PC's keyboard of 105 keys has, from Escape to the keypad's point.
TEST(PcKeysTest, EveryKeyOfAPcsKeyboardHasACode)
{
    std::vector<quint32> keys;
    for (quint32 key = 1; key <= 83; ++key)
        keys.push_back(key);
    for (const quint32 key : {86U,  87U,  88U,  96U,  97U,  98U,  99U,  100U, 102U, 103U, 104U,
                              105U, 106U, 107U, 108U, 109U, 110U, 111U, 119U, 125U, 126U, 127U})
        keys.push_back(key);
    EXPECT_EQ(keys.size(), 105U);
    for (const quint32 key : keys)
        EXPECT_NE(keyCodeOfScanCode(key + firstScanCode), std::nullopt) << key;
}

TEST(PcKeysTest, KeysymsHaveNamesThatAreKnown)
{
    for (int keyCode = 0; keyCode <= 126; ++keyCode) {
        const QByteArray name = keysymNameOf(keyCode).toLatin1();
        if (name.isEmpty())
            continue;
        EXPECT_NE(xkb_keysym_from_name(name, XKB_KEYSYM_NO_FLAGS), xkb_keysym_t{XKB_KEY_NoSymbol})
            << name.toStdString();
    }
}

TEST(PcKeysTest, KeyInThePlaceOfAnotherIsNamedAsOnAPc)
{
    EXPECT_EQ(keysymNameOf(105), u"Print"_qs);
    EXPECT_EQ(scanCodesOfKeyCode(105).size(), 2U);
    EXPECT_EQ(keyCodeOfScanCode(99 + firstScanCode), 105);
    EXPECT_EQ(keyCodeOfScanCode(183 + firstScanCode), 105);
}

TEST(HotkeyTextTest, IsWordedForThePortalAndForThePeople)
{
    EXPECT_EQ(triggerOf({11, 0x180000}), u"CTRL+ALT+b"_qs);
    EXPECT_EQ(wordsOf({11, 0x180000}), u"Ctrl+Alt+B"_qs);
    EXPECT_EQ(triggerOf({122, 0x1e0000}), u"LOGO+CTRL+ALT+SHIFT+F1"_qs);
    EXPECT_EQ(wordsOf({49, 0x60000}), u"Super+Shift+Space"_qs);
    EXPECT_EQ(triggerOf({49, 0}), u"space"_qs);
    EXPECT_EQ(triggerOf({12345, 0x180000}), QString());
}
