#include "Services/Input/RowFilter.h"

#include "QtPrinters.h"
#include "Services/Input/InputSamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RowFilter, SearchIsTheTokenWithoutItsFirstCharacter)
{
    EXPECT_EQ(searchIn(u"$Da"_qs), u"Da"_qs);
    EXPECT_EQ(searchIn(u"#"_qs), QString());
    EXPECT_EQ(searchIn(u"$\u0308Da"_qs), u"Da"_qs);
    EXPECT_EQ(searchIn(QString()), QString());
}

struct CommandsRow {
    const char* name;
    QString input;
    QList<Command> commands;
};

class MatchingCommands : public testing::TestWithParam<CommandsRow> {};

const QList<Command> every{Command::newNote, Command::searchNotes, Command::recentNotes};

const CommandsRow commandsRows[] = {
    {"AllForTheSlash", u"/"_qs, every},
    {"AllForAnyOneCharacter", u"\U0001f600"_qs, every},
    {"AllForNothing", QString(), every},
    {"BeginOfAWord", u"/re"_qs, {Command::recentNotes}},
    {"PartOfTheWord", u"/no"_qs, {Command::newNote, Command::searchNotes}},
    {"WholeWord", u"/new_note"_qs, {Command::newNote}},
    {"SlashAndWord", u"//re"_qs, {Command::recentNotes}},
    {"UpperCase", u"/RE"_qs, {Command::recentNotes}},
    {"None", u"/zz"_qs, {}},
    {"NotTheFirstCharacter", u"xre"_qs, {Command::recentNotes}},
    {"MoreThanTheWord", u"/new_notes"_qs, {}},
    {"TwoUnitsOfOneCharacter", u"/\u0308"_qs, every},
    {"FirstCharacterOfTwoUnits", u"\U0001f600re"_qs, {Command::recentNotes}},
};

TEST_P(MatchingCommands, HoldTheWord)
{
    EXPECT_EQ(matchingCommands(GetParam().input), GetParam().commands);
}

INSTANTIATE_TEST_SUITE_P(Rows, MatchingCommands, testing::ValuesIn(commandsRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct NamesRow {
    const char* name;
    QString search;
    QStringList names;
};

class MatchingNames : public testing::TestWithParam<NamesRow> {};

const QStringList someNames{u"Daily Note"_qs, u"Notes"_qs, u"\u00c4rger"_qs, u"a.b"_qs, QString()};

const NamesRow namesRows[] = {
    {"AllForNothing", QString(), someNames},
    {"PartOfTheName", u"note"_qs, {u"Daily Note"_qs, u"Notes"_qs}},
    {"UpperCase", u"NOTE"_qs, {u"Daily Note"_qs, u"Notes"_qs}},
    {"LettersOfAllScripts", u"\u00e4R"_qs, {u"\u00c4rger"_qs}},
    {"SignsAreThemselves", u"a.b"_qs, {u"a.b"_qs}},
    {"None", u"zz"_qs, {}},
    {"BlankBehindCounts", u"notes "_qs, {}},
};

TEST_P(MatchingNames, HoldTheSearch)
{
    ObsidianTemplates templates;
    for (const QString& name : someNames)
        templates.append({QUuid::createUuid(), name, QString(), true, TemplateType::regular()});
    QStringList found;
    for (const ObsidianTemplate& each : matchingTemplates(templates, GetParam().search))
        found.append(each.name);
    EXPECT_EQ(found, GetParam().names);

    QStringList folders;
    for (const FolderItem& each : matchingFolders(someNames, GetParam().search))
        folders.append(each.name);
    EXPECT_EQ(folders, GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(Rows, MatchingNames, testing::ValuesIn(namesRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RowFilter, NamesAreComparedInLowerCase)
{
    InputSamples samples(6);
    for (int round = 0; round < 20'000; ++round) {
        const QString name = samples.text(3) + samples.anyOf({u"Daily NOTE"_qs, QString()});
        const QString search = samples.anyOf({samples.text(1), name.mid(samples.below(6), 3)});
        ASSERT_EQ(matchingFolders({name}, search).size(),
                  name.toLower().contains(search.toLower()) ? 1 : 0)
            << round;
    }
}

TEST(RowFilter, TagsKeepTheirOrderAndCount)
{
    EXPECT_THAT(hashtagRows({}), IsEmpty());
    EXPECT_THAT(hashtagRows({{u"b"_qs, 2}, {u"a"_qs, 1}}),
                ElementsAre(HashtagItem{u"b"_qs, 2}, HashtagItem{u"a"_qs, 1}));
}

} // namespace

} // namespace jotwell
