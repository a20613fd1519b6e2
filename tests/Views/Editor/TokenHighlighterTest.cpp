#include "Views/Editor/TokenHighlighter.h"

#include "Support/TextUnits.h"
#include "Views/Editor/AttributedText.h"
#include "Views/Editor/HighlightReference.h"
#include "Views/Editor/HostileTexts.h"
#include "Views/Editor/ReadyNames.h"

#include <gtest/gtest.h>

#include <ostream>

namespace jotwell {

namespace {

const QStringList templates{u"Daily"_qs, u"Daily Note"_qs, u"Meeting"_qs, u"a\u0301b"_qs,
                            u"\U0001F600"_qs};
const QStringList folders{u"All Folders"_qs, u"Work"_qs, u"Work/Old"_qs, u"Daily"_qs};

/// The runs of the whole and the three lists of tokens, each range by its place and text.
struct Highlighted {
    const char* rule;
    QStringView text;
    const char* expected;
};

void PrintTo(const Highlighted& highlighted, std::ostream* out)
{
    *out << highlighted.rule;
}

class TokenHighlighterTable : public testing::TestWithParam<Highlighted> {};

TEST_P(TokenHighlighterTable, Finds)
{
    const QStringView text = GetParam().text;
    EXPECT_EQ(described(text, quickHighlight(text, characterCount(text), templates, folders)),
              GetParam().expected);
}

const Highlighted commands[] = {
    {"a command", u"/recent", "0:/recent mono 14 medium blue expanded | 0:/recent |  | "},
    {"any slash word counts", u"/x", "0:/x mono 14 medium blue expanded | 0:/x |  | "},
    {"a hyphen belongs to the word", u"a /b-c.d",
     "2:/b-c mono 14 medium blue expanded | 2:/b-c |  | "},
    {"behind a line end", u"a\n/b", "2:/b mono 14 medium blue expanded | 2:/b |  | "},
    {"behind a no-break blank", u"a\u00a0/b", "2:/b mono 14 medium blue expanded | 2:/b |  | "},
    {"not within a word", u"and/or", " |  |  | "},
    {"not behind another slash", u"//a", " |  |  | "},
    {"a bare slash is none", u"/ a", " |  |  | "},
    {"letters of any script", u"/\u00e9\u0301\u4e2d",
     "0:/\u00e9\u0301 mono 14 medium blue expanded | 0:/\u00e9\u0301 |  | "}};

const Highlighted parameters[] = {
    {"a template", u"/new_note  $Meeting x",
     "0:/new_note mono 14 medium blue expanded; 11:$Meeting mono 14 medium green expanded | "
     "0:/new_note | 11:$Meeting | "},
    {"the first name that fits wins", u"/new_note $Daily Note",
     "0:/new_note mono 14 medium blue expanded; 10:$Daily mono 14 medium green expanded | "
     "0:/new_note | 10:$Daily | "},
    {"no command no parameter", u"$Meeting", " |  |  | "},
    {"the command has to stand before it", u"$Meeting /new_note",
     "9:/new_note mono 14 medium blue expanded | 9:/new_note |  | "},
    {"the command may be part of a word", u"x/new_notes$Meeting",
     "11:$Meeting mono 14 medium green expanded |  | 11:$Meeting | "},
    {"every parameter behind it", u"/new_note$Meeting$Meetings",
     "0:/new_note mono 14 medium blue expanded; 9:$Meeting$Meeting mono 14 medium green expanded | "
     "0:/new_note | 9:$Meeting; 17:$Meeting | "},
    {"no other command has templates", u"/search_notes $Meeting",
     "0:/search_notes mono 14 medium blue expanded | 0:/search_notes |  | "},
    {"case counts", u"/new_note $meeting",
     "0:/new_note mono 14 medium blue expanded | 0:/new_note |  | "},
    {"a dollar at the end is none", u"/new_note $",
     "0:/new_note mono 14 medium blue expanded | 0:/new_note |  | "},
    {"a name of more units than characters is none", u"/new_note $a\u0301b      ",
     "0:/new_note mono 14 medium blue expanded | 0:/new_note |  | "},
    {"a folder", u"/recent  $Work",
     "0:/recent mono 14 medium blue expanded; 9:$Work mono 14 medium green expanded | "
     "0:/recent | 9:$Work | "},
    {"all folders", u"/recent  $All Folders",
     "0:/recent mono 14 medium blue expanded; 9:$All Folders mono 14 medium green expanded | "
     "0:/recent | 9:$All Folders | "},
    {"templates before folders whatever their places", u"/new_note/recent $Work $Daily",
     "0:/new_note mono 14 medium blue expanded; 17:$Work mono 14 medium green expanded; "
     "23:$Daily mono 14 medium green expanded | 0:/new_note | 23:$Daily; 17:$Work; 23:$Daily | "}};

const Highlighted hashtags[] = {
    {"a tag at the start", u"#a-b c", "0:#a-b mono 14 bold |  |  | 0:#a-b"},
    {"a tag behind a blank", u"a #b", "2:#b mono 14 bold |  |  | 2:#b"},
    {"a tag within a word stays black", u"a#b", "1:#b mono 13 bold black |  |  | "},
    {"two marks", u"##a", "1:#a mono 13 bold black |  |  | "},
    {"a hyphen alone", u"#- a", "0:#- mono 14 bold |  |  | 0:#-"}};

const Highlighted overlaps[] = {
    {"a command over a title", u"# /a",
     "0:# 14 bold; 2:/a mono 14 medium blue expanded | 2:/a |  | "},
    {"a command over code", u"` /a `",
     "0:`  mono 13; 2:/a mono 14 medium blue expanded; 4: ` mono 13 | 2:/a |  | "},
    {"a tag over code and a title", u"# `a #b`",
     "0:# 14 bold; 2:`a  mono 13; 5:#b mono 14 bold; 7:` mono 13 |  |  | 5:#b"},
    {"lines stay under a chip", u"~~ /a ~~",
     "0:~~  struck; 3:/a mono 14 medium blue expanded struck; 5: ~~ struck | 3:/a |  | "}};

const Highlighted mixtures[] = {
    {"a command at the limit is cut", u"\U0001F600 /ab",
     "3:/a mono 14 medium blue expanded | 3:/a |  | "},
    {"a parameter at the limit is none", u"/new_note \U0001F600$Meeting",
     "0:/new_note mono 14 medium blue expanded | 0:/new_note |  | "},
    {"a parameter before the limit is one", u"/new_note \U0001F600$Meeting!",
     "0:/new_note mono 14 medium blue expanded; 12:$Meeting mono 14 medium green expanded | "
     "0:/new_note | 12:$Meeting | "},
    {"a tag at the limit is cut", u"\U0001F600 #ab", "3:#a mono 14 bold |  |  | 3:#a"}};

INSTANTIATE_TEST_SUITE_P(Commands, TokenHighlighterTable, testing::ValuesIn(commands));
INSTANTIATE_TEST_SUITE_P(Parameters, TokenHighlighterTable, testing::ValuesIn(parameters));
INSTANTIATE_TEST_SUITE_P(Hashtags, TokenHighlighterTable, testing::ValuesIn(hashtags));
INSTANTIATE_TEST_SUITE_P(Overlaps, TokenHighlighterTable, testing::ValuesIn(overlaps));
INSTANTIATE_TEST_SUITE_P(Mixtures, TokenHighlighterTable, testing::ValuesIn(mixtures));

std::string found(const QString& text, const QStringList& names)
{
    return described(text, quickHighlight(text, characterCount(text), names, {}).tokens.templates);
}

TEST(TokenHighlighter, AnEmptyNameTakesABareDollar)
{
    EXPECT_EQ(found(u"/new_note $x $Work"_qs, {u"Work"_qs, u""_qs}), "10:$; 13:$Work");
    EXPECT_EQ(found(u"/new_note $x $Work"_qs, {u""_qs, u"Work"_qs}), "10:$; 13:$");
    EXPECT_EQ(found(u"/new_note $"_qs, {u""_qs}), "");
}

TEST(TokenHighlighter, ATagInANameOnlyLosesItsColor)
{
    const QString text = u"/new_note $a #b"_qs;
    EXPECT_EQ(described(text, quickHighlight(text, text.size(), {u"a #b"_qs}, {}).runs),
              "0:/new_note mono 14 medium blue expanded; 10:$a  mono 14 medium green expanded; "
              "13:#b mono 14 bold expanded");
}

TEST(TokenHighlighter, AParameterIsDrawnOverACommand)
{
    const QString text = u"/new_note $a /b"_qs;
    EXPECT_EQ(described(text, quickHighlight(text, text.size(), {u"a /b"_qs}, {}).runs),
              "0:/new_note mono 14 medium blue expanded; 10:$a /b mono 14 medium green expanded");
}

TEST(TokenHighlighter, ParametersWithinParametersAreFoundAsWell)
{
    const QString text = u"/new_note $a$b$bc"_qs;
    EXPECT_EQ(described(text, quickHighlight(text, text.size(), {u"a$b$b"_qs, u"b"_qs}, {})),
              "0:/new_note mono 14 medium blue expanded; "
              "10:$a$b$b mono 14 medium green expanded | 0:/new_note | "
              "10:$a$b$b; 12:$b; 14:$b | ");
}

class AskedNames {
public:
    [[nodiscard]] int asked(const QString& text)
    {
        const auto count = [this] {
            ++m_asked;
            return QStringList(u"a"_qs);
        };
        m_asked = 0;
        AttributedText attributed(text.size());
        const auto none = [] { return QStringList(); };
        ReadyNames templates({count, none});
        ReadyNames folders({none, count});
        (void)highlightTokens(attributed, text, text.size(), templates);
        (void)highlightTokens(attributed, text, text.size(), folders);
        return m_asked;
    }

private:
    int m_asked = 0;
};

TEST(TokenHighlighter, NamesAreAskedForOnceAndOnlyIfAParameterMayFollow)
{
    AskedNames names;
    EXPECT_EQ(names.asked(u"a $a $a"_qs), 0);
    EXPECT_EQ(names.asked(u"/new_note a"_qs), 0);
    EXPECT_EQ(names.asked(u"$a /new_note"_qs), 0);
    EXPECT_EQ(names.asked(u"/new_note $a $a"_qs), 1);
    EXPECT_EQ(names.asked(u"/recent $a $a"_qs), 1);
}

TEST(TokenHighlighter, ACommandBehindTheLimitHasNoParameters)
{
    AttributedText attributed(16);
    ReadyNames names({[] { return QStringList(u"a"_qs); }, [] { return QStringList(u"a"_qs); }});
    const TokenRanges tokens = highlightTokens(attributed, u"$a /new_note $a ", 9, names);
    EXPECT_EQ(tokens.templates, std::vector<TextRange>());
}

TEST(TokenHighlighter, HostileTextsAreAsThePlainRulesHaveThem)
{
    const QStringList names{u"a#"_qs,     u"a"_qs,  u"*"_qs,          u"$"_qs,      u"n\n"_qs,
                            u"\u00e9"_qs, u"Z/"_qs, u"\U0001F600"_qs, u"\u0301"_qs, u"aa"_qs};
    HostileTexts texts;
    for (int round = 0; round < 20'000; ++round) {
        QString text = texts.next(40);
        if (round % 4 == 0)
            text.prepend(u"/new_note$");
        if (round % 3 == 0)
            text.insert(texts.upTo(text.size()), u"/recent");
        const QStringList some = names.mid(texts.upTo(9));
        const QStringList others =
            round % 5 == 0 ? QStringList{u"ab"_qs, QString(), u"Z"_qs} : names.mid(2);
        for (const qsizetype limit : {characterCount(text), text.size()})
            ASSERT_EQ(described(text, quickHighlight(text, limit, some, others)),
                      described(text, plainHighlight(text, limit, some, others)));
    }
}

TEST(TokenHighlighter, EveryShortTextWithTokensIsAsThePlainRulesHaveIt)
{
    forEachText(u"/# a-", 6, [](const QString& text) {
        ASSERT_EQ(described(text, quickHighlight(text, text.size(), {}, {})),
                  described(text, plainHighlight(text, text.size(), {}, {})));
    });
}

TEST(TokenHighlighter, EndlessTextsAreReadOnce)
{
    QStringList names{QString(1'000'000, u'T'), QString(90'000, u'$')};
    for (int number = 0; number < 500; ++number)
        names.append(u"Project"_qs + QString(number, u'T'));
    std::size_t runs = 0;
    for (const QString& text : endlessTexts())
        runs += quickHighlight(text, text.size(), names, names).runs.size();
    EXPECT_GT(runs, 100'000U);
}

struct Backspace {
    const char* rule;
    QStringView text;
    qsizetype cursor;
    const char* deleted;
};

void PrintTo(const Backspace& backspace, std::ostream* out)
{
    *out << backspace.rule;
}

std::string slashWord(QStringView text, qsizetype cursor)
{
    const auto range = slashWordAt(text, characterCount(text), cursor);
    return range ? described(text, std::vector<TextRange>{*range}) : "";
}

class SlashWordTable : public testing::TestWithParam<Backspace> {};

TEST_P(SlashWordTable, IsDeletedAsAWhole)
{
    EXPECT_EQ(slashWord(GetParam().text, GetParam().cursor), GetParam().deleted);
}

const Backspace backspaces[] = {{"right behind the word", u"x /recent", 9, "2:/recent"},
                                {"inside the word", u"x /recent", 5, "2:/recent"},
                                {"at the start of the word", u"x /recent", 2, "2:/recent"},
                                {"before the word", u"x /recent", 1, ""},
                                {"a blank further", u"x /recent ", 10, ""},
                                {"inside another word", u"and/or", 6, "3:/or"},
                                {"before the slash of another word", u"and/or", 3, "3:/or"},
                                {"the last of two that meet", u"/a/b", 2, "2:/b"},
                                {"the first of two", u"/a/b", 1, "0:/a"},
                                {"before a slash without a word", u"/a/", 2, "0:/a"},
                                {"behind a slash without a word", u"/a/", 3, ""},
                                {"between slashes without a word", u"/a//", 3, ""},
                                {"an empty text", u"", 0, ""},
                                {"a bare slash", u"/", 1, ""},
                                {"hyphens belong to the word", u"/a-b-", 5, "0:/a-b-"},
                                {"an emoji before it cuts it", u"\U0001F600/ab", 4, "2:/a"},
                                {"behind what the emoji has cut", u"\U0001F600/ab", 5, ""}};

INSTANTIATE_TEST_SUITE_P(Backspace, SlashWordTable, testing::ValuesIn(backspaces));

TEST(SlashWordAt, EveryShortTextIsAsThePatternHasIt)
{
    forEachText(u"/a- ", 7, [](const QString& text) {
        for (qsizetype cursor = 0; cursor <= text.size(); ++cursor)
            ASSERT_EQ(slashWordAt(text, text.size(), cursor),
                      plainSlashWordAt(text, text.size(), cursor))
                << qPrintable(text) << " at " << cursor;
    });
}

TEST(SlashWordAt, HostileTextsAreAsThePatternHasThem)
{
    HostileTexts texts;
    for (int round = 0; round < 20'000; ++round) {
        const QString text = u'/' + texts.next(20);
        const qsizetype limit = texts.upTo(text.size());
        const qsizetype cursor = texts.upTo(text.size());
        ASSERT_EQ(slashWordAt(text, limit, cursor), plainSlashWordAt(text, limit, cursor))
            << qPrintable(text);
    }
}

} // namespace

} // namespace jotwell
