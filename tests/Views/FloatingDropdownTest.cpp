#include "Views/FloatingDropdown.h"

#include "Services/Input/CommandTemplateFields.h"
#include "Services/Input/Dropdown.h"
#include "Views/FloatingDropdownRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

using namespace jotwell;

namespace {

constexpr std::array allTypes{DropdownType::command, DropdownType::noteTemplate,
                              DropdownType::folder, DropdownType::hashtag, DropdownType::none};

QString of(const char* text)
{
    return QLatin1String(text);
}

ObsidianTemplate named(const char* name)
{
    ObsidianTemplate noteTemplate;
    noteTemplate.id = QUuid::createUuid();
    noteTemplate.name = of(name);
    return noteTemplate;
}

/// A state that holds rows of each list, of which one is open.
CommandTemplateFields stateWith(DropdownType open)
{
    CommandTemplateFields fields;
    fields.dropdownType = open;
    fields.filteredCommands = {Command::newNote, Command::recentNotes};
    fields.filteredTemplates = {named("Journal"), named("Meeting"), named("Meeting")};
    fields.filteredFolders = {{of("Ideas")}, {of("Work")}, {of("Ideas")}};
    fields.filteredHashtags = {{of("ideas"), 1}, {of("work"), 2}};
    return fields;
}

DropdownItem withId(const std::variant<QUuid, QString>& id)
{
    return {id, {}, {}, {}};
}

} // namespace

TEST(FloatingDropdown, ItemsOfOneIdentifierAreEqual)
{
    const QUuid id = QUuid::createUuid();
    EXPECT_TRUE(FloatingDropdown::areItemsEqual(withId(id), withId(id)));
    EXPECT_FALSE(FloatingDropdown::areItemsEqual(withId(id), withId(QUuid::createUuid())));
    EXPECT_TRUE(FloatingDropdown::areItemsEqual(withId(of("a")), withId(of("a"))));
    EXPECT_FALSE(FloatingDropdown::areItemsEqual(withId(of("a")), withId(of("b"))));
}

TEST(FloatingDropdown, AnIdentifierOfAnotherKindIsAnother)
{
    const QUuid id = QUuid::createUuid();
    EXPECT_FALSE(FloatingDropdown::areItemsEqual(withId(id), withId(id.toString())));
}

TEST(FloatingDropdown, ItemsOfTwoListsWithTheSameStringAreEqual)
{
    const DropdownItem folder = FolderItem{of("ideas")}.row();
    const DropdownItem hashtag = HashtagItem{of("ideas"), 3}.row();
    EXPECT_TRUE(FloatingDropdown::areItemsEqual(folder, hashtag));
}

TEST(FloatingDropdown, ColoursItsIcons)
{
    const std::array<std::pair<DropdownType, const char*>, 5> expected{
        {{DropdownType::command, "accent"},
         {DropdownType::noteTemplate, "green"},
         {DropdownType::folder, "green"},
         {DropdownType::hashtag, "blue"},
         {DropdownType::none, "gray"}}};
    for (const auto& [type, color] : expected) {
        EXPECT_EQ(FloatingDropdown::iconColor(type, false), of(color));
        EXPECT_EQ(FloatingDropdown::iconColor(type, true), of("primary"));
    }
}

TEST(FloatingDropdown, ColoursItsRows)
{
    for (const DropdownType type : allTypes) {
        EXPECT_EQ(FloatingDropdown::backgroundColor(type, true, true), of("gray0.2"));
        EXPECT_EQ(FloatingDropdown::backgroundColor(type, true, false), of("gray0.2"));
        EXPECT_EQ(FloatingDropdown::backgroundColor(type, false, false), of("clear"));
        EXPECT_EQ(FloatingDropdown::backgroundColor(type, false, true),
                  type == DropdownType::folder ? of("clear") : of("gray0.1"));
    }
}

TEST(FloatingDropdown, CommandsHaveTextsForIcons)
{
    EXPECT_FALSE(FloatingDropdown::hasSymbols(DropdownType::command));
    EXPECT_FALSE(FloatingDropdown::hasSymbols(DropdownType::none));
    EXPECT_TRUE(FloatingDropdown::hasSymbols(DropdownType::noteTemplate));
    EXPECT_TRUE(FloatingDropdown::hasSymbols(DropdownType::folder));
    EXPECT_TRUE(FloatingDropdown::hasSymbols(DropdownType::hashtag));
}

TEST(FloatingDropdown, ScrollsToTheFirstRowThatIsEqual)
{
    const auto fields = stateWith(DropdownType::folder);
    const FloatingDropdownRows rows(fields);
    const DropdownItem ideas = fields.filteredFolders.at(2).row();
    EXPECT_EQ(FloatingDropdown::scrollTarget(rows, ideas, std::nullopt),
              (ScrollTarget{0, ScrollAnchor::center}));
    const DropdownItem work = fields.filteredFolders.at(1).row();
    EXPECT_EQ(FloatingDropdown::scrollTarget(rows, work, ArrowDirection::down),
              (ScrollTarget{1, ScrollAnchor::top}));
    EXPECT_EQ(FloatingDropdown::scrollTarget(rows, work, ArrowDirection::up),
              (ScrollTarget{1, ScrollAnchor::bottom}));
}

TEST(FloatingDropdown, ScrollsNowhereWithoutASelectedRow)
{
    const FloatingDropdownRows rows(stateWith(DropdownType::folder));
    EXPECT_EQ(FloatingDropdown::scrollTarget(rows, std::nullopt, std::nullopt), std::nullopt);
    EXPECT_EQ(FloatingDropdown::scrollTarget(rows, withId(of("Elsewhere")), std::nullopt),
              std::nullopt);
}

TEST(FloatingDropdownRows, FindsWhatTheComparisonOfItemsFinds)
{
    QList<DropdownItem> wanted{withId(of("nothing")), withId(QUuid::createUuid())};
    QList<CommandTemplateFields> states;
    for (const DropdownType type : allTypes) {
        states.append(stateWith(type));
        const FloatingDropdownRows rows(states.constLast());
        for (qsizetype index = 0; index < rows.size(); ++index)
            wanted.append(Dropdown::row(rows.item(index)));
    }
    ASSERT_EQ(wanted.size(), 12);
    for (const auto& state : states) {
        const FloatingDropdownRows rows(state);
        for (const DropdownItem& item : wanted) {
            std::optional<qsizetype> expected;
            for (qsizetype index = rows.size() - 1; index >= 0; --index) {
                if (FloatingDropdown::areItemsEqual(Dropdown::row(rows.item(index)), item))
                    expected = index;
            }
            EXPECT_EQ(rows.indexOf(item), expected);
        }
    }
}

TEST(FloatingDropdownRows, AreThoseOfTheOpenList)
{
    EXPECT_EQ(FloatingDropdownRows(stateWith(DropdownType::command)).size(), 2);
    EXPECT_EQ(FloatingDropdownRows(stateWith(DropdownType::noteTemplate)).size(), 3);
    EXPECT_EQ(FloatingDropdownRows(stateWith(DropdownType::folder)).size(), 3);
    EXPECT_EQ(FloatingDropdownRows(stateWith(DropdownType::hashtag)).size(), 2);
    EXPECT_EQ(FloatingDropdownRows(stateWith(DropdownType::none)).size(), 0);
    EXPECT_EQ(FloatingDropdownRows(), FloatingDropdownRows(stateWith(DropdownType::none)));
}
