#include "Platform/linux/XcbModifiers.h"

#include "Platform/KeyEvent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace jotwell;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr quint64 commandOption = ModifierBit::command | ModifierBit::option;

XcbModifiers::Keysyms usualMap()
{
    return {{{XKB_KEY_Shift_L},
             {XKB_KEY_Caps_Lock},
             {XKB_KEY_Control_L},
             {XKB_KEY_Alt_L, XKB_KEY_Meta_L, XKB_KEY_Alt_R},
             {XKB_KEY_Num_Lock},
             {XKB_KEY_ISO_Level5_Shift},
             {XKB_KEY_Super_L, XKB_KEY_Hyper_L},
             {XKB_KEY_ISO_Level3_Shift}}};
}

} // namespace

TEST(XcbModifiersTest, EachCombinationOfLocksIsAState)
{
    const XcbModifiers modifiers(usualMap());
    EXPECT_THAT(modifiers.statesFor(commandOption), UnorderedElementsAre(0xc, 0xe, 0x1c, 0x1e));
    EXPECT_THAT(modifiers.statesFor(0), UnorderedElementsAre(0, 2, 0x10, 0x12));
}

TEST(XcbModifiersTest, ModifiersAreWhereTheMapHasThem)
{
    XcbModifiers::Keysyms map = usualMap();
    std::swap(map[3], map[6]);
    std::swap(map[4], map[5]);
    const XcbModifiers modifiers(map);
    EXPECT_THAT(modifiers.statesFor(ModifierBit::option),
                UnorderedElementsAre(0x40, 0x42, 0x60, 0x62));
    EXPECT_THAT(modifiers.statesFor(ModifierBit::control), testing::Contains(8));
    EXPECT_EQ(modifiers.flagsOf(0x40), ModifierBit::option);
}

TEST(XcbModifiersTest, ScrollLockIsALockWhereItIsAModifier)
{
    XcbModifiers::Keysyms map = usualMap();
    map[5] = {XKB_KEY_Scroll_Lock};
    EXPECT_EQ(XcbModifiers(map).statesFor(commandOption).size(), 8U);
}

TEST(XcbModifiersTest, LockOnTheModifierOfAnotherKeyDoesNotCount)
{
    XcbModifiers::Keysyms map = usualMap();
    map[4] = {};
    map[3].push_back(XKB_KEY_Num_Lock);
    EXPECT_THAT(XcbModifiers(map).statesFor(commandOption), UnorderedElementsAre(0xc, 0xe));
}

TEST(XcbModifiersTest, ModifierWithoutAKeyCannotBeHeld)
{
    const XcbModifiers modifiers(XcbModifiers::Keysyms{});
    EXPECT_THAT(modifiers.statesFor(ModifierBit::option), IsEmpty());
    EXPECT_THAT(modifiers.statesFor(ModifierBit::command | ModifierBit::shift),
                UnorderedElementsAre(5, 7));
    EXPECT_EQ(modifiers.flagsOf(0xffff), ModifierBit::command | ModifierBit::shift);
}

TEST(XcbModifiersTest, StateTellsTheModifiersAlone)
{
    const XcbModifiers modifiers(usualMap());
    EXPECT_EQ(modifiers.flagsOf(0xc), commandOption);
    EXPECT_EQ(modifiers.flagsOf(0xffff), ModifierBit::all);
    EXPECT_EQ(modifiers.flagsOf(0x2012), 0U) << "locks and the second layout";
    EXPECT_EQ(modifiers.flagsOf(1), ModifierBit::shift);
    EXPECT_EQ(modifiers.flagsOf(0x40), ModifierBit::control);
}
