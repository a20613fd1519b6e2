#include "Services/NoteText.h"

#include "Fakes/FakeClock.h"
#include "QtPrinters.h"
#include "Support/IcuRegex.h"
#include "Support/TextUnits.h"

#include <gtest/gtest.h>

#include <random>

namespace jotwell {

namespace {

constexpr Clock::TimePoint usualTime{FakeClock::usualTime}; // 5 March 2024, 14:46:07

const QStringList builtInNames{u"Default"_qs, u"Meeting"_qs, u"Daily Note"_qs};
const QString allAsciiSymbols = uR"(!"#$%&'()*+,-./:;<=>?@[\]^_`{|}~)"_qs;
const QString megabyte(1'000'000, u'x');
const QString fiveEmoji = u"\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600"_qs;

struct ContentRow {
    const char* name;
    QString text;
    QString content;
    QStringList templateNames = builtInNames;
};

class ContentOf : public testing::TestWithParam<ContentRow> {};

const ContentRow contentRows[] = {
    {"CommandAloneIsEmpty", u"/new_note"_qs, u""_qs},
    {"CommandIsRemoved", u"/new_note hello"_qs, u"hello"_qs},
    {"CommandNeedsNoWordLimit", u"/new_notes hello"_qs, u"s hello"_qs},
    {"CommandIsRemovedAnywhere", u"hello/new_note you"_qs, u"hello you"_qs},
    {"OnlyTheFirstCommandGoes", u"/new_note first /new_note second"_qs,
     u"first /new_note second"_qs},
    {"WhatIsLeftIsNotSearchedAgain", u"/new_/new_notenote hello"_qs, u"/new_note hello"_qs},
    {"CaseOfTheCommandMatters", u"/New_note hello"_qs, u"/New_note hello"_qs},
    {"OtherCommandsStay", u"/recent hello"_qs, u"/recent hello"_qs},
    {"NoCommandChangesNothing", u"hello"_qs, u"hello"_qs},
    {"BothEndsAreTrimmed", u"/new_note \t\n\u2028\u00a0hello\nyou \r\n\u3000"_qs, u"hello\nyou"_qs},
    {"TemplateIsRemoved", u"/new_note  $Daily Note hello"_qs, u"hello"_qs},
    {"WordBoundaryTakesTheWholeWord", u"$Meeting agenda"_qs, u"agenda"_qs},
    {"WordBoundaryKeepsLongerWord", u"$Meetings agenda"_qs, u"$Meetings agenda"_qs},
    {"CaseOfATemplateMatters", u"$meeting agenda"_qs, u"$meeting agenda"_qs},
    {"NameWithoutDollarStays", u"Meeting agenda"_qs, u"Meeting agenda"_qs},
    {"AllMatchesOfTheNameGo", u"$Meeting a $Meeting b"_qs, u"a  b"_qs},
    {"FirstNameThatMatchesEndsTheSearch", u"$Meeting $Default x"_qs, u"$Meeting  x"_qs},
    {"ShorterNameFirstCutsTheLonger", u"$Day Plan x"_qs, u"Plan x"_qs, {u"Day"_qs, u"Day Plan"_qs}},
    {"LongerNameFirstIsTakenWhole", u"$Day Plan x"_qs, u"x"_qs, {u"Day Plan"_qs, u"Day"_qs}},
    {"NameThatDoesNotMatchIsPassedOver",
     u"$Days $Plan x"_qs,
     u"$Days  x"_qs,
     {u"Day"_qs, u"Plan"_qs}},
    {"NameInsideAWordGoes", u"a$Meeting-b"_qs, u"a-b"_qs},
    {"NoNamesChangeNothing", u"$Meeting agenda"_qs, u"$Meeting agenda"_qs, {}},
    {"FolderNameStays", u"$Inbox hello"_qs, u"$Inbox hello"_qs},
    {"TagsStay", u"/new_note #work hello #todo"_qs, u"#work hello #todo"_qs},
    {"NonWordEndAsksForAWordBehind", u"$Ideas! note"_qs, u"$Ideas! note"_qs, {u"Ideas!"_qs}},
    {"NonWordEndFindsAWordBehind", u"$Ideas!note"_qs, u"note"_qs, {u"Ideas!"_qs}},
    {"SymbolsInANameAreThemselves",
     u"a $"_qs + allAsciiSymbols + u"z b"_qs,
     u"a  b"_qs,
     {allAsciiSymbols + u'z'}},
    {"DotInANameIsNoWildcard", u"$axb"_qs, u"$axb"_qs, {u"a.b"_qs}},
    {"QuotingInANameIsItself", uR"($\Qa\Ex y)"_qs, u"y"_qs, {uR"(\Qa\Ex)"_qs}},
    {"FlagsInANameAreThemselves", u"$(?i)x y"_qs, u"y"_qs, {u"(?i)x"_qs}},
    {"BrokenPatternAsANameIsItself", u"$[a{2,1 y"_qs, u"y"_qs, {u"[a{2,1"_qs}},
    {"BlanksInANameAreThemselves", u"$a \t#b y"_qs, u"y"_qs, {u"a \t#b"_qs}},
    {"EmptyNameTakesTheDollarOfAWord", u"$word $ 5"_qs, u"word $ 5"_qs, {u""_qs}},
    {"EmptyNameComesInItsTurn", u"$Plan x"_qs, u"x"_qs, {u"Plan"_qs, u""_qs}},
    {"NameOfAMegabyteIsFound", u'$' + megabyte + u" y"_qs, u"y"_qs, {megabyte}},
    {"NameOfAMegabyteIsNotThere", u"$xx y"_qs, u"$xx y"_qs, {megabyte}},
    {"EmojiInANameAreThemselves", u"$\U0001F4A1a b"_qs, u"b"_qs, {u"\U0001F4A1a"_qs}},
    {"EquivalentSpellingsDiffer", u"$U\u0308bung x"_qs, u"$U\u0308bung x"_qs, {u"\u00dcbung"_qs}},
    {"EmojiHideATemplateAtTheEnd", fiveEmoji + u" $Meeting"_qs, fiveEmoji + u" $Meeting"_qs},
    {"TextBehindTheTemplateMakesUpForEmoji", fiveEmoji + u" $Meeting 1234"_qs,
     fiveEmoji + u"  1234"_qs},
    {"TemplateThatReachesTheLimitIsFound", u"\U0001F600 $Meeting "_qs, u"\U0001F600"_qs},
    {"TemplateThatPassesTheLimitStays", u"\U0001F600 $Meeting"_qs, u"\U0001F600 $Meeting"_qs},
    {"CombiningMarksCountAsOneToo", u"a\u0308 $Meeting"_qs, u"a\u0308 $Meeting"_qs},
    {"TextBehindTheLimitIsNotSeen", u"\U0001F600$Meetings"_qs, u"\U0001F600s"_qs},
    {"MatchesBehindTheLimitStay",
     fiveEmoji + u"$Plan $Plan"_qs,
     fiveEmoji + u" $Plan"_qs,
     {u"Plan"_qs}},
    {"CommandGoesBeforeCharactersAreCounted", u"\U0001F600 $Meeting/new_note"_qs,
     u"\U0001F600 $Meeting"_qs},
};

TEST_P(ContentOf, Text)
{
    EXPECT_EQ(extractContent(GetParam().text, GetParam().templateNames), GetParam().content);
}

INSTANTIATE_TEST_SUITE_P(Rows, ContentOf, testing::ValuesIn(contentRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// The content as the rules tell it, with one pattern tried for each name.
QString plainContent(QString text, const QStringList& templateNames)
{
    if (const qsizetype command = text.indexOf(u"/new_note"_qs); command >= 0)
        text.remove(command, 9);
    const TextRange searched{0, characterCount(text)};
    for (const QString& name : templateNames) {
        const auto pattern = IcuRegex::compile(u"\\$"_qs + IcuRegex::escaped(name) + u"\\b"_qs);
        if (!pattern || !pattern->firstMatch(text, searched))
            continue;
        text = pattern->replaced(text, searched, u"");
        break;
    }
    return trimmedWhitespaceAndNewlines(text);
}

TEST(NoteText, ContentIsThatOfThePlainForm)
{
    const QStringList pieces{u"$"_qs,  u"Day"_qs,   u"Plan"_qs,       u" "_qs, u"!"_qs,
                             u"s"_qs,  u"\n"_qs,    u"\U0001F600"_qs, u"_"_qs, u"\u0308"_qs,
                             u".+"_qs, u"/new_"_qs, u"note"_qs,       u"d"_qs, u"\u00fc"_qs};
    const QStringList names{u"Plan!"_qs, u"Day Plan"_qs,   u"Day"_qs,
                            u".+"_qs,    u"\U0001F600"_qs, u""_qs};
    std::mt19937 random(20240305);
    for (int round = 0; round < 20'000; ++round) {
        QString text;
        for (unsigned count = random() % 14; count > 0; --count)
            text += pieces.at(static_cast<qsizetype>(random()) % pieces.size());
        const QStringList some = names.mid(static_cast<qsizetype>(random()) % names.size());
        ASSERT_EQ(extractContent(text, some), plainContent(text, some)) << text.toStdString();
    }
}

struct TitleRow {
    const char* name;
    QString content;
    QString title;
};

class TitleOf : public testing::TestWithParam<TitleRow> {};

const TitleRow titleRows[] = {
    {"WholeOfOneLine", u"milk and bread"_qs, u"milk and bread"_qs},
    {"FirstLine", u"milk\nbread"_qs, u"milk"_qs},
    {"CarriageReturnEndsALine", u"milk\r\nbread"_qs, u"milk"_qs},
    {"VerticalTabEndsALine", u"milk\vbread"_qs, u"milk"_qs},
    {"FormFeedEndsALine", u"milk\fbread"_qs, u"milk"_qs},
    {"NextLineEndsALine", u"milk\u0085bread"_qs, u"milk"_qs},
    {"LineSeparatorEndsALine", u"milk\u2028bread"_qs, u"milk"_qs},
    {"ParagraphSeparatorEndsALine", u"milk\u2029bread"_qs, u"milk"_qs},
    {"BlanksAtTheEndStay", u"milk \t\nbread"_qs, u"milk \t"_qs},
    {"LineOfBlanksIsATitle", u"  \nbread"_qs, u"  "_qs},
    {"NoLengthIsTooLong", megabyte + u"\nbread"_qs, megabyte},
    {"EmptyContentHasTheTime", QString(), u"Note 14:46"_qs},
    {"EmptyFirstLineHasTheTime", u"\nbread"_qs, u"Note 14:46"_qs},
};

TEST_P(TitleOf, Content)
{
    EXPECT_EQ(generateTitle(GetParam().content, usualTime), GetParam().title);
}

INSTANTIATE_TEST_SUITE_P(Rows, TitleOf, testing::ValuesIn(titleRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(NoteText, TimeOfDayHasTwoDigitsEach)
{
    EXPECT_EQ(generateTitle({}, usualTime - std::chrono::hours(9)), u"Note 05:46"_qs);
}

struct NoteRow {
    const char* name;
    QString templateContent;
    QString title;
    QString content;
    QString note;
};

class NoteFrom : public testing::TestWithParam<NoteRow> {};

const NoteRow noteRows[] = {
    {"EachPlaceholder", u"{{title}}|{{content}}|{{date}}"_qs, u"t"_qs, u"c"_qs,
     u"t|c|Mar 5, 2024, 2:46 PM"_qs},
    {"EveryOccurrence", u"{{date}}{{title}}{{content}}{{content}}{{title}}{{date}}"_qs, u"t"_qs,
     u"c"_qs, u"Mar 5, 2024, 2:46 PMtcctMar 5, 2024, 2:46 PM"_qs},
    {"NoPlaceholderNoText", u"fixed"_qs, u"t"_qs, u"c"_qs, u"fixed"_qs},
    {"EmptyTemplateEmptyNote", QString(), u"t"_qs, u"c"_qs, QString()},
    {"CaseMatters", u"{{Title}}{{ title }}"_qs, u"t"_qs, u"c"_qs, u"{{Title}}{{ title }}"_qs},
    {"NoOtherPlaceholder", u"{{time}}{title}"_qs, u"t"_qs, u"c"_qs, u"{{time}}{title}"_qs},
    {"TypedDateIsFilled", u"{{content}}"_qs, u"t"_qs, u"on {{date}}"_qs,
     u"on Mar 5, 2024, 2:46 PM"_qs},
    {"TypedContentIsFilledInTheTitle", u"{{title}}"_qs, u"{{content}}"_qs, u"c"_qs, u"c"_qs},
    {"TypedContentInTheContentStays", u"{{content}}"_qs, u"t"_qs, u"a {{content}}"_qs,
     u"a {{content}}"_qs},
    {"TypedTitleStays", u"{{content}}"_qs, u"t"_qs, u"a {{title}}"_qs, u"a {{title}}"_qs},
    {"PlaceholderMadeByAnEarlierOneIsFilled", u"{{{{title}}}}"_qs, u"date"_qs, u"c"_qs,
     u"Mar 5, 2024, 2:46 PM"_qs},
    {"NothingIsAPattern", u"{{content}}"_qs, u"t"_qs, u"\\1 $1 \\E"_qs, u"\\1 $1 \\E"_qs},
};

TEST_P(NoteFrom, Template)
{
    const ObsidianTemplate noteTemplate{QUuid(), u"T"_qs, GetParam().templateContent, true, {}};
    // Unicode's data has a plain or a narrow no-break space there, by version.
    const QString note =
        createNoteContent(GetParam().title, GetParam().content, noteTemplate, usualTime)
            .replace(u'\u202f', u' ');
    EXPECT_EQ(note, GetParam().note);
}

INSTANTIATE_TEST_SUITE_P(Rows, NoteFrom, testing::ValuesIn(noteRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct FileNameRow {
    const char* name;
    QString title;
    QString beginning; ///< what stands before the date
};

class FileNameOf : public testing::TestWithParam<FileNameRow> {};

const FileNameRow fileNameRows[] = {
    {"PlainTitle", u"milk and bread"_qs, u"milk and bread"_qs},
    {"EachForbiddenCharacter", u"a/b?c%d*e:f|g\"h<i>j"_qs, u"a-b-c-d-e-f-g-h-i-j"_qs},
    {"OnlyForbiddenCharacters", u"???"_qs, u"---"_qs},
    {"BackslashStays", u"a\\b"_qs, u"a\\b"_qs},
    {"OtherSymbolsStay", u"#a $b .c 'd' (e) [f] {g} ~ & + = ! @ ^ ` , ; _"_qs,
     u"#a $b .c 'd' (e) [f] {g} ~ & + = ! @ ^ ` , ; _"_qs},
    {"BlanksAtBothEndsGo", u" \t\u00a0milk \u3000"_qs, u"milk"_qs},
    {"LineEndsAtBothEndsGo", u"\r\nmilk\u2028"_qs, u"milk"_qs},
    {"BlanksInsideStay", u"a  b\tc"_qs, u"a  b\tc"_qs},
    {"BlanksBesideForbiddenStay", u"? a ?"_qs, u"- a -"_qs},
    {"TimeLosesItsColon", u"Note 14:05"_qs, u"Note 14-05"_qs},
    {"LeadingDotStays", u".hidden"_qs, u".hidden"_qs},
    {"TwoDotsStay", u".."_qs, u".."_qs},
    {"Emoji", u"\U0001F469\u200D\U0001F4BB"_qs, u"\U0001F469\u200D\U0001F4BB"_qs},
    {"EmptyTitle", QString(), QString()},
    {"NoLengthIsTooLong", megabyte, megabyte},
};

TEST_P(FileNameOf, Title)
{
    EXPECT_EQ(generateFilename(GetParam().title, usualTime),
              GetParam().beginning + u" - 2024-03-05 144607.md"_qs);
}

INSTANTIATE_TEST_SUITE_P(Rows, FileNameOf, testing::ValuesIn(fileNameRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(NoteText, NamesAreUniqueToTheSecondOnly)
{
    using std::chrono::milliseconds;
    const QString name = generateFilename(u"a"_qs, usualTime);
    EXPECT_EQ(generateFilename(u"a"_qs, usualTime + milliseconds(999)), name);
    EXPECT_EQ(generateFilename(u"a"_qs, usualTime + milliseconds(1000)),
              u"a - 2024-03-05 144608.md"_qs);
}

} // namespace

} // namespace jotwell
