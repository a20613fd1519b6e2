#include "Services/Index/Search/SearchQuery.h"

#include "QtPrinters.h"
#include "Services/Index/Search/SearchReference.h"

#include <gtest/gtest.h>

#include <random>

namespace jotwell {

namespace {

struct ParseRow {
    const char* name;
    QString query;
    QStringList filenameTerms;
    QStringList hashtags;
};

class ParseSearchQuery : public testing::TestWithParam<ParseRow> {};

const ParseRow parseRows[] = {
    {"Empty", u""_qs, {}, {}},
    {"BlanksAlone", u" \t "_qs, {}, {}},
    {"WordsAndTagsInTheirOrder", u"one #a two #b"_qs, {u"one"_qs, u"two"_qs}, {u"a"_qs, u"b"_qs}},
    {"CaseIsKept", u"Word #Tag"_qs, {u"Word"_qs}, {u"Tag"_qs}},
    {"ALoneMarkIsDropped", u"# a #"_qs, {u"a"_qs}, {}},
    {"OnlyTheFirstMarkIsLost", u"##a"_qs, {}, {u"#a"_qs}},
    {"AMarkWithinIsNoTag", u"a#b"_qs, {u"a#b"_qs}, {}},
    {"TabsAndOtherSpacesCut", u"a\tb\u00a0c\u3000d"_qs, {u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}, {}},
    {"LineEndsDoNotCut", u"a\nb\u2028c"_qs, {u"a\nb\u2028c"_qs}, {}},
};

TEST_P(ParseSearchQuery, CutsTheQuery)
{
    const SearchQuery parsed = parseSearchQuery(GetParam().query);
    EXPECT_EQ(parsed.filenameTerms, GetParam().filenameTerms);
    EXPECT_EQ(parsed.hashtags, GetParam().hashtags);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseSearchQuery, testing::ValuesIn(parseRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct PrepareRow {
    const char* name;
    QString query;
    QString prepared;
};

class PrepareFTSQuery : public testing::TestWithParam<PrepareRow> {};

const PrepareRow prepareRows[] = {
    {"Word", u"word"_qs, u"word"_qs},
    {"AndBecomesABlank", u"a AND b AND c"_qs, u"a b c"_qs},
    {"AndIsReplacedOnce", u"a AND AND b"_qs, u"a AND b"_qs},
    {"AndInSmallLettersIsAWord", u"a and b"_qs, u"a and b"_qs},
    {"AndAtTheEndIsAWord", u"a AND"_qs, u"a AND"_qs},
    {"OtherOperatorsPassOn", u"a OR b NOT c*"_qs, u"a OR b NOT c*"_qs},
    {"APhrasePassesOnWhole", u"\"a AND b\""_qs, u"\"a AND b\""_qs},
    {"TwoPhrasesPassOnWhole", u"\"a\" AND \"b\""_qs, u"\"a\" AND \"b\""_qs},
    {"OneMarkIsAPhrase", u"\""_qs, u"\""_qs},
    {"AnOpenPhraseIsNone", u"\"a AND b"_qs, u"\"a b"_qs},
};

TEST_P(PrepareFTSQuery, ReplacesAnd)
{
    EXPECT_EQ(prepareFTSQuery(GetParam().query), GetParam().prepared);
}

INSTANTIATE_TEST_SUITE_P(Rows, PrepareFTSQuery, testing::ValuesIn(prepareRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ContentTerms, AreCutAtBlanksAloneAndInLowerCase)
{
    EXPECT_EQ(contentTerms(u"  One TWO  "_qs), QStringList({u"one"_qs, u"two"_qs}));
    EXPECT_EQ(contentTerms(u"a\tb\u00a0c"_qs), QStringList({u"a\tb\u00a0c"_qs}));
    EXPECT_EQ(contentTerms(u"   "_qs), QStringList());
    EXPECT_EQ(contentTerms(u"#Tag"_qs), QStringList({u"#tag"_qs}));
}

TEST(SearchQuery, AgreesWithThePlainForms)
{
    static const QStringList pieces{u" "_qs,      u"\t"_qs,  u"#"_qs,    u"\""_qs, u"AND"_qs,
                                    u"OR"_qs,     u"NOT"_qs, u"*"_qs,    u"a"_qs,  u"\u0130"_qs,
                                    u"\u2003"_qs, u"\n"_qs,  u" AND "_qs};
    std::mt19937 random(20240305);
    for (int round = 0; round < 20'000; ++round) {
        QString query;
        for (unsigned left = random() % 8; left > 0; --left)
            query += pieces[static_cast<qsizetype>(random() % pieces.size())];
        ASSERT_EQ(parseSearchQuery(query), plainParseSearchQuery(query)) << query.toStdString();
        ASSERT_EQ(prepareFTSQuery(query), plainPrepareFTSQuery(query));
        ASSERT_EQ(contentTerms(query), plainContentTerms(query));
    }
}

} // namespace

} // namespace jotwell
