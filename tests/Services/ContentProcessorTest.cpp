#include "Services/ContentProcessor.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct TextRow {
    const char* name;
    QByteArray text;
    QByteArray result;
};

std::string rowName(const testing::TestParamInfo<TextRow>& info)
{
    return info.param.name;
}

// From a note to what is searched.

class CleanedText : public testing::TestWithParam<TextRow> {};

const TextRow cleanedRows[] = {
    {"NothingIsNothing", ""_qba, ""_qba},
    {"FencedBlockLeavesAWord", "a\n```c\nint b;\n```\nd"_qba, "a [code] d"_qba},
    {"BlockReferencesHaveNoAnchor", "x^2 and ^block-id"_qba, "x and"_qba},
    {"RuleOfThreeDashesGoes", "a\n---\nb"_qba, "a b"_qba},
    {"RuleOfMoreDashesGoes", "a\n-----\nb"_qba, "a b"_qba},
    {"TwoDashesStay", "a\n--\nb"_qba, "a -- b"_qba},
    {"DashesWithBlanksAreAListMark", "- - -"_qba, "- -"_qba},
    {"RulesOfAsterisksAndUnderscoresGo", "a\n***\n___\nb"_qba, "a b"_qba},
    {"TaskKeepsItsBox", "- [ ] task"_qba, "[ ] task"_qba},
    {"YearIsTakenForANumber", "2024. The year"_qba, "The year"_qba},
    {"OneQuoteMarkGoes", "> > quoted"_qba, "> quoted"_qba},
    {"TagAtALineStartKeepsItsMark", "#tag"_qba, "#tag"_qba},
    {"OneTildeStays", "~a~ ~~b~~"_qba, "~a~ b"_qba},
    {"LinksAndInlineCodeAreText", "See [[A|B]], `c` and [d](e)."_qba, "See BA,  c  and d."_qba},
    {"FrontMatterIsText", "---\ntags: [a, b]\n---\nc"_qba, "tags: [a, b] c"_qba},
    {"MarksUncoveredByOthersCount", "**# a**\n_- b_\n[[1. c]]"_qba, "a b c"_qba},
    {"EachMarkIsLookedForBehindTheOneBefore", "# - 1. > a"_qba, "a"_qba},
    {"RuleBehindAHeadingMarkGoes", "# ---\na"_qba, "a"_qba},
    {"ParagraphsAreLost", "a\n\n\n\nb\r\nc"_qba, "a b c"_qba},
    {"ZeroIsACharacter", "a\0 # \0b"_qba, "a\0 # \0b"_qba},
    {"MarkOfTheByteOrderHidesAHeading", "\uFEFF# a"_qba, "\uFEFF# a"_qba},
};

// Runs of blanks are told of their own.
QByteArray simplified(const QByteArray& text)
{
    return ContentProcessor::normalizeText(text);
}

TEST_P(CleanedText, IsTheSameEitherWay)
{
    const QByteArray expected = simplified(GetParam().result);
    EXPECT_EQ(ContentProcessor::processContent(GetParam().text).cleanedText, expected);
    EXPECT_EQ(ContentProcessor::cleanedContent(GetParam().text).text, expected);
}

INSTANTIATE_TEST_SUITE_P(ContentProcessor, CleanedText, testing::ValuesIn(cleanedRows), rowName);

TEST(ContentProcessor, AnEmptyNoteHasNothing)
{
    const ProcessedContent content = ContentProcessor::processContent("");
    EXPECT_EQ(content.cleanedText, ""_qba);
    EXPECT_TRUE(content.codeBlocks.isEmpty());
    EXPECT_TRUE(content.wikiLinks.isEmpty());
    EXPECT_TRUE(content.hashtags.isEmpty());
    EXPECT_EQ(content.wordCount, 0);
}

TEST(ContentProcessor, ANoteGivesAllItsParts)
{
    const QByteArray note = "# On [[Ideas|ideas]]\n\n#One and #my_tag, `[[In code]]`\n"
                            "```\n#no [[None]]\n```\n"_qba;
    const ProcessedContent content = ContentProcessor::processContent(note);
    EXPECT_EQ(content.cleanedText, "On ideasIdeas #One and #mytag, In code [code]"_qba);
    EXPECT_EQ(content.codeBlocks, (QList<CodeBlock>{{std::nullopt, "#no [[None]]\n"_qba, 4, 6}}));
    EXPECT_EQ(content.wikiLinks, (QSet<QByteArray>{"Ideas"_qba, "In code"_qba}));
    EXPECT_EQ(content.hashtags, (TagSet{u"mytag"_qs, u"one"_qs}));
    EXPECT_EQ(content.wordCount, 8);
}

TEST(ContentProcessor, TheIndexsPartIsTheSame)
{
    const QByteArray note = "#b #A path/#c word#d\n#my_tag"_qba;
    const ProcessedContent whole = ContentProcessor::processContent(note);
    const CleanedContent part = ContentProcessor::cleanedContent(note);
    EXPECT_EQ(part.hashtags, (TagSet{u"a"_qs, u"b"_qs, u"mytag"_qs}));
    EXPECT_EQ(part.hashtags, whole.hashtags);
    EXPECT_EQ(part.wordCount, 5);
    EXPECT_EQ(part.wordCount, whole.wordCount);
}

TEST(ContentProcessor, CleanedTextTakesNoMoreRoomThanItNeeds)
{
    const QByteArray note = "[a](" + QByteArray(100'000, 'b') + ")";
    EXPECT_LT(ContentProcessor::cleanedContent(note).text.capacity(), 100);
}

// Hashtags.

struct TagRow {
    const char* name;
    QByteArray text;
    TagSet tags;
};

class Hashtags : public testing::TestWithParam<TagRow> {};

const TagRow tagRows[] = {
    {"TagIsAMarkAndAWord", "#a"_qba, {u"a"_qs}},
    {"DashesUnderscoresAndDigitsBelongToIt", "#a-B_9."_qba, {u"a-b_9"_qs}},
    {"CaseIsLost", "#Tag #tag #TAG"_qba, {u"tag"_qs}},
    {"OtherLettersEndIt", "#a\u00E9"_qba, {u"a"_qs}},
    {"OtherLettersMakeNone", "#\u00E9a"_qba, {}},
    {"SlashHoldsItBack", "path/#tag"_qba, {}},
    {"WordHoldsItBack", "word#tag 1#tag _#tag"_qba, {}},
    {"WordsOfAllScriptsHoldItBack", "\u3042#a \u0301#a \u0663#a \u203F#a \u200D#a"_qba, {}},
    {"WordsBeyondTheBasicPlaneHoldItBack", "\U00020000#a \U0001D7D9#a"_qba, {}},
    {"OtherCharactersDoNot",
     "(#a \u201C#b \U0001F600#c \u00B2#d"_qba,
     {u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}},
    {"MarkDoesNotHoldItBack", "##a"_qba, {u"a"_qs}},
    {"BacktickDoesNotHoldItBack", "`#a"_qba, {u"a"_qs}},
    {"TagHoldsTheNextBack", "#a#b"_qba, {u"a"_qs}},
    {"MarkAloneIsNone", "# #"_qba, {}},
};

TEST_P(Hashtags, AreFound)
{
    EXPECT_EQ(ContentProcessor::extractHashtags(GetParam().text), GetParam().tags);
}

INSTANTIATE_TEST_SUITE_P(ContentProcessor, Hashtags, testing::ValuesIn(tagRows),
                         [](const auto& info) { return std::string(info.param.name); });

// One line.

class NormalText : public testing::TestWithParam<TextRow> {};

const TextRow normalRows[] = {
    {"RunsBecomeOneBlank", "a  b \t\n c"_qba, "a b c"_qba},
    {"EndsAreTrimmed", " \n\ta \r\n"_qba, "a"_qba},
    {"SpacesAloneAreNothing", " \t\r\n\v\f\u0085\u2028\u3000"_qba, ""_qba},
    {"EverySpaceOfUnicodeCounts",
     "a\u00A0b\u1680c\u2000d\u200Ae\u2028f\u2029g\u202Fh\u205Fi\u3000j\u0085k"_qba,
     "a b c d e f g h i j k"_qba},
    {"WhatOnlyLooksLikeASpaceStays", "a\u200Bb\u180Ec\uFEFFd\u001Ce\u2060f"_qba,
     "a\u200Bb\u180Ec\uFEFFd\u001Ce\u2060f"_qba},
    {"OneNoBreakBlankBecomesABlank", "abcdefgh\u00A0ijklmnop"_qba, "abcdefgh ijklmnop"_qba},
    {"MarksStay", "# a\n---\n- b"_qba, "# a --- - b"_qba},
    {"ZerosStay", "\0a\0 \0"_qba, "\0a\0 \0"_qba},
    // Eight bytes are copied at a time where they can be.
    {"BlankBehindEightBytes", "abcdefgh ijklmnop "_qba, "abcdefgh ijklmnop"_qba},
    {"BlanksAcrossEightBytes", "abcdefg  hijklmno"_qba, "abcdefg hijklmno"_qba},
    {"LineEndBehindABlankAtEightBytes", "abcdefg \nhijklmn"_qba, "abcdefg hijklmn"_qba},
    {"WideBlankBehindABlankAtEightBytes", "abcdefg \u3000hijklmn"_qba, "abcdefg hijklmn"_qba},
    {"BlankAtTheEndOfEightBytes", "abcdefg "_qba, "abcdefg"_qba},
    {"DeleteIsText", "abc\u007Fefgh ij"_qba, "abc\u007Fefgh ij"_qba},
};

TEST_P(NormalText, IsOnOneLine)
{
    EXPECT_EQ(ContentProcessor::normalizeText(GetParam().text), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(ContentProcessor, NormalText, testing::ValuesIn(normalRows), rowName);

// Words.

TEST(ContentProcessor, WordsStandBetweenSpaces)
{
    EXPECT_EQ(ContentProcessor::countWords(""), 0);
    EXPECT_EQ(ContentProcessor::countWords(" \n "), 0);
    EXPECT_EQ(ContentProcessor::countWords("a"), 1);
    EXPECT_EQ(ContentProcessor::countWords(" a  b\n- c "), 4);
    EXPECT_EQ(ContentProcessor::countWords("a\u00A0b\u2029c\u3000d\u0085e\u2028f"), 6);
}

TEST(ContentProcessor, ATabPartsNoWords)
{
    EXPECT_EQ(ContentProcessor::countWords("a\tb"), 1);
    EXPECT_EQ(ContentProcessor::countWords("\t"), 1);
}

} // namespace

} // namespace jotwell
