#include "Platform/linux/XcbKeyCodes.h"

#include <gtest/gtest.h>

using namespace jotwell;

TEST(XcbKeyCodesTest, KnowsTheDigitsOfTheUpperRowByTheirPlaces)
{
    EXPECT_EQ(keyCodeOfScanCode(10), 18);
    EXPECT_EQ(keyCodeOfScanCode(11), 19);
    EXPECT_EQ(keyCodeOfScanCode(12), 20);
    EXPECT_EQ(keyCodeOfScanCode(13), 21);
    EXPECT_EQ(keyCodeOfScanCode(14), 23);
}

TEST(XcbKeyCodesTest, KnowsNoOthers)
{
    EXPECT_EQ(keyCodeOfScanCode(9), 53) << "Escape";
    EXPECT_EQ(keyCodeOfScanCode(87), std::nullopt) << "1 of the keypad";
    EXPECT_EQ(keyCodeOfScanCode(0), std::nullopt) << "a key that no device has";
    EXPECT_EQ(keyCodeOfScanCode(0xffffffff), std::nullopt);
}
