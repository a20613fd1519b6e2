#include "Platform/linux/PcKeyNames.h"

#include <gtest/gtest.h>

using namespace jotwell;

TEST(PcKeyNames, NamesTheModifiers)
{
    const PcKeyNames names;
    EXPECT_EQ(names.nameOf(QStringLiteral("⌘")), QStringLiteral("Ctrl"));
    EXPECT_EQ(names.nameOf(QStringLiteral("⌥")), QStringLiteral("Alt"));
    EXPECT_EQ(names.nameOf(QStringLiteral("⌃")), QStringLiteral("Super"));
    EXPECT_EQ(names.nameOf(QStringLiteral("⇧")), QStringLiteral("Shift"));
}

TEST(PcKeyNames, LeavesEveryOtherText)
{
    const PcKeyNames names;
    for (const char* const key : {"", "B", "Tab", "Enter", "⏎", "↑", "Ctrl", "⌘⇧"})
        EXPECT_EQ(names.nameOf(QString::fromUtf8(key)), QString::fromUtf8(key));
}
