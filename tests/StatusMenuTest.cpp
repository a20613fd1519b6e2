#include "StatusMenu.h"

#include "QtPrinters.h"

#include <QMap>
#include <QStringList>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

constexpr quint64 command = 0x100000;
constexpr quint64 commandAndOption = 0x180000;

std::vector<MenuEntry> menuFor(qint64 keyCode, const StatusMenuActions& actions = {})
{
    MenuEntry update;
    update.title = QStringLiteral("Updates");
    return statusMenu({keyCode, commandAndOption}, actions, update);
}

} // namespace

TEST(StatusMenuTest, KeyEquivalentsAreThoseOfTheTableAndNoOthers)
{
    const QMap<int, const char*> table{
        {0, "a"},  {1, "s"},  {2, "d"},  {3, "f"},  {4, "h"},  {5, "g"},  {6, "z"},  {7, "x"},
        {8, "c"},  {9, "v"},  {11, "b"}, {12, "q"}, {13, "w"}, {14, "e"}, {15, "r"}, {16, "y"},
        {17, "t"}, {18, "1"}, {19, "2"}, {20, "3"}, {21, "4"}, {22, "6"}, {23, "5"}, {25, "9"},
        {26, "7"}, {28, "8"}, {29, "0"}, {31, "o"}, {32, "u"}, {34, "i"}, {35, "p"}, {37, "l"},
        {38, "j"}, {40, "k"}, {45, "n"}, {46, "m"}, {49, " "},
    };
    for (int keyCode = -2; keyCode < 130; ++keyCode) {
        const auto found = table.constFind(keyCode);
        const auto expected = found == table.constEnd()
                                  ? std::optional<QString>()
                                  : std::optional(QString::fromLatin1(*found));
        EXPECT_EQ(getKeyEquivalent(keyCode), expected) << keyCode;
    }
    EXPECT_EQ(getKeyEquivalent(std::numeric_limits<qint64>::max()), std::nullopt);
}

TEST(StatusMenuTest, HasItsEntriesInTheirOrder)
{
    QStringList titles;
    for (const MenuEntry& entry : menuFor(11))
        titles.append(entry.title);
    const QStringList expected{QStringLiteral("Open"),    {}, QStringLiteral("Settings"), {},
                               QStringLiteral("Updates"), {}, QStringLiteral("Quit")};
    EXPECT_EQ(titles, expected);
}

TEST(StatusMenuTest, OpenShowsTheHotkey)
{
    EXPECT_EQ(menuFor(11)[0].keyEquivalent, QStringLiteral("b"));
    EXPECT_EQ(menuFor(11)[0].keyEquivalentModifierMask, commandAndOption);
}

TEST(StatusMenuTest, HotkeyOnTheSpaceBarShowsABlank)
{
    EXPECT_EQ(menuFor(49)[0].keyEquivalent, QStringLiteral(" "));
}

TEST(StatusMenuTest, HotkeyWithoutAnEntryInTheTableShowsNothing)
{
    EXPECT_EQ(menuFor(50)[0].keyEquivalent, QString());
    EXPECT_EQ(menuFor(36)[0].keyEquivalent, QString());
    EXPECT_EQ(menuFor(50)[0].keyEquivalentModifierMask, commandAndOption);
}

TEST(StatusMenuTest, QuitHasItsKeyAndSettingsHasNone)
{
    const auto menu = menuFor(11);
    EXPECT_EQ(menu[6].keyEquivalent, QStringLiteral("q"));
    EXPECT_EQ(menu[6].keyEquivalentModifierMask, command);
    EXPECT_EQ(menu[2].keyEquivalent, QString());
}

TEST(StatusMenuTest, EntriesDoWhatTheySay)
{
    QStringList done;
    const auto note = [&done](const char* name) {
        return [&done, name] { done.append(QString::fromLatin1(name)); };
    };
    const auto menu = menuFor(11, {note("open"), note("settings"), note("quit")});
    for (const int entry : {0, 2, 6})
        menu[static_cast<std::size_t>(entry)].action();
    const QStringList expected{QStringLiteral("open"), QStringLiteral("settings"),
                               QStringLiteral("quit")};
    EXPECT_EQ(done, expected);
}
