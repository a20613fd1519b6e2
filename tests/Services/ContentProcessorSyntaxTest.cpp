// What becomes of code, of links and of marks.

#include "Services/ContentProcessor.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct CodeRow {
    const char* name;
    QByteArray text;
    QByteArray result;
    QList<CodeBlock> blocks = {};
};

class CodeOf : public testing::TestWithParam<CodeRow> {};

CodeBlock plainBlock(const QByteArray& content, qsizetype startLine, qsizetype endLine)
{
    return {std::nullopt, content, startLine, endLine};
}

// What opens no block is still inline code between its innermost backticks.
const CodeRow codeRows[] = {
    {"NoBlock", "a"_qba, "a"_qba},
    {"BlockOnTheFirstLine", "```\na\n```"_qba, " [code] "_qba, {plainBlock("a\n"_qba, 1, 3)}},
    {"LanguageIsTheWordBehindTheFence",
     "```c_9\na```"_qba,
     " [code] "_qba,
     {{"c_9"_qba, "a"_qba, 1, 2}}},
    {"LanguageOfAnyScript",
     "```\u65E5\u0301\u0663\na```"_qba,
     " [code] "_qba,
     {{"\u65E5\u0301\u0663"_qba, "a"_qba, 1, 2}}},
    {"BlockOfNothing", "```\n```"_qba, " [code] "_qba, {plainBlock(""_qba, 1, 2)}},
    {"BlocksInOrder",
     "a\n```\nb\n```\nc```d\ne\nf```g"_qba,
     "a\n [code] \nc [code] g"_qba,
     {plainBlock("b\n"_qba, 2, 4), {"d"_qba, "e\nf"_qba, 5, 7}}},
    {"EveryLineEndCounts",
     "\r\n\v\f\u0085\u2028\u2029```\n\r\n```"_qba,
     "\r\n\v\f\u0085\u2028\u2029 [code] "_qba,
     {plainBlock("\r\n"_qba, 8, 11)}},
    {"TwoWordsOpenNothing", "```a b\nc\n```"_qba, "`` a b\nc\n ``"_qba},
    {"DashOpensNothing", "```a-b\nc\n```"_qba, "`` a-b\nc\n ``"_qba},
    {"BlankBehindTheFenceOpensNothing", "``` \na\n```"_qba, "``  \na\n ``"_qba},
    {"CarriageReturnOpensNothing", "```\r\na\r\n```"_qba, "`` \r\na\r\n ``"_qba},
    {"OtherLineEndsOpenNothing", "```\u2028a\n```"_qba, "`` \u2028a\n ``"_qba},
    {"TextOpensNothing", "```a"_qba, "```a"_qba},
    {"UnclosedIsNoBlock", "```\na\n``"_qba, "`` \na\n `"_qba},
    {"ClosingFenceMayOpenWhatTheOpeningCouldNot",
     "```a b\nc\n```\nd\n```"_qba,
     "```a b\nc\n [code] "_qba,
     {plainBlock("d\n"_qba, 3, 5)}},
    {"FenceInMidLineOpens", "a ```\nb```c"_qba, "a  [code] c"_qba, {plainBlock("b"_qba, 1, 2)}},
    {"LastThreeOfManyBackticksOpen",
     "`````\na\n```"_qba,
     "`` [code] "_qba,
     {plainBlock("a\n"_qba, 1, 3)}},
    {"FirstThreeOfManyBackticksClose",
     "```\na\n`````"_qba,
     " [code] ``"_qba,
     {plainBlock("a\n"_qba, 1, 3)}},
    {"BackticksInsideStay",
     "```\n`a` ``\n```"_qba,
     " [code] "_qba,
     {plainBlock("`a` ``\n"_qba, 1, 3)}},
    {"InlineCodeLosesItsBackticks", "a `b` `c d`"_qba, "a  b   c d "_qba},
    {"ClosingBacktickOpensNothing", "`a`b`"_qba, " a b`"_qba},
    {"InlineCodeMayCrossLines", "`a\nb`"_qba, " a\nb "_qba},
    {"TwoBackticksHoldNothing", "``"_qba, "``"_qba},
    {"SecondOfTwoBackticksOpens", "``a`"_qba, "` a "_qba},
    {"DoubleBackticksLoseTheInnerOnes", "``a``"_qba, "` a `"_qba},
    {"OneBacktickStays", "a ` b"_qba, "a ` b"_qba},
    {"InlineCodeReachesAcrossBlocks",
     "`a\n```\nb\n```\nc`"_qba,
     " a\n [code] \nc "_qba,
     {plainBlock("b\n"_qba, 2, 4)}},
};

TEST_P(CodeOf, IsTakenOut)
{
    const ContentProcessor::WithoutCode result =
        ContentProcessor::extractCodeBlocks(GetParam().text);
    EXPECT_EQ(result.text, GetParam().result);
    EXPECT_EQ(result.codeBlocks, GetParam().blocks);
}

INSTANTIATE_TEST_SUITE_P(ContentProcessor, CodeOf, testing::ValuesIn(codeRows),
                         [](const auto& info) { return std::string(info.param.name); });

// Wiki links: what they lead to, and what they leave.

struct LinkRow {
    const char* name;
    QByteArray text;
    QSet<QByteArray> targets;
    QByteArray result;
};

class WikiLinksOf : public testing::TestWithParam<LinkRow> {};

const LinkRow linkRows[] = {
    {"TargetAlone", "[[Note]]"_qba, {"Note"_qba}, "Note"_qba},
    {"AliasComesFirst", "[[Note|Shown]]"_qba, {"Note"_qba}, "ShownNote"_qba},
    {"NothingIsTrimmed", "[[ A b |c ]]"_qba, {" A b "_qba}, "c  A b "_qba},
    {"LongAliasComesFirst", "x[[a|bcdefg]]y"_qba, {"a"_qba}, "xbcdefgay"_qba},
    {"AliasMayHoldBars", "[[a|b|c]]"_qba, {"a"_qba}, "b|ca"_qba},
    {"TargetMayCrossLines", "[[a\nb]]"_qba, {"a\nb"_qba}, "a\nb"_qba},
    {"TargetMayHoldOpeningBrackets", "[[[a]]"_qba, {"[a"_qba}, "[a"_qba},
    {"OuterLinkTakesTheInnerOne", "[[a [[b]]"_qba, {"a [[b"_qba}, "a [[b"_qba},
    {"BracketsBehindStay", "[[a]]]"_qba, {"a"_qba}, "a]"_qba},
    {"FourBracketsLeaveTwo", "[[[[a]]]]"_qba, {"[[a"_qba}, "[[a]]"_qba},
    {"EmptyTargetIsNone", "[[]] [[|a]]"_qba, {}, "[[]] [[|a]]"_qba},
    {"EmptyAliasIsNone", "[[a|]]"_qba, {}, "[[a|]]"_qba},
    {"OneClosingBracketIsNone", "[[a] b]]"_qba, {}, "[[a] b]]"_qba},
    {"OneClosingBracketBehindAnAliasIsNone", "[[a|b] c]]"_qba, {}, "[[a|b] c]]"_qba},
    {"UnclosedIsNone", "[[a [[b"_qba, {}, "[[a [[b"_qba},
    {"LinkBehindAnUnclosedOneCounts", "[[a] [[b]]"_qba, {"b"_qba}, "[[a] b"_qba},
    {"SameTargetTwiceIsOne", "[[a]][[a|b]]"_qba, {"a"_qba}, "aba"_qba},
    {"CaseCounts", "[[a]] [[A]]"_qba, {"a"_qba, "A"_qba}, "a A"_qba},
    {"EmbedKeepsItsMark", "![[picture.png]]"_qba, {"picture.png"_qba}, "!picture.png"_qba},
    {"ZeroBelongsToTheTarget", "[[a\0b]]"_qba, {"a\0b"_qba}, "a\0b"_qba},
    {"OtherScripts",
     "[[\u65E5|\U0001F600\u00E9]]"_qba,
     {"\u65E5"_qba},
     "\U0001F600\u00E9\u65E5"_qba},
};

TEST_P(WikiLinksOf, AreFound)
{
    EXPECT_EQ(ContentProcessor::extractWikiLinks(GetParam().text), GetParam().targets);
}

TEST_P(WikiLinksOf, AreReplaced)
{
    EXPECT_EQ(ContentProcessor::removeObsidianSyntax(GetParam().text), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(ContentProcessor, WikiLinksOf, testing::ValuesIn(linkRows),
                         [](const auto& info) { return std::string(info.param.name); });

// All other syntax.

struct SyntaxRow {
    const char* name;
    QByteArray text;
    QByteArray result;
};

class SyntaxOf : public testing::TestWithParam<SyntaxRow> {};

const SyntaxRow linkSyntaxRows[] = {
    {"LinkBecomesItsText", "[a b](c d)"_qba, "a b"_qba},
    {"LinkMayCrossLines", "[a\nb](c\nd)"_qba, "a\nb"_qba},
    {"TextOfALinkMayHoldAnOpeningBracket", "[a [b](c)"_qba, "a [b"_qba},
    {"DestinationEndsAtTheFirstParenthesis", "[a](b(c)d)"_qba, "ad)"_qba},
    {"DestinationMayNotBeEmpty", "[a]()"_qba, "[a]()"_qba},
    {"DestinationMayHoldAnOpeningParenthesis", "[a](()"_qba, "a"_qba},
    {"TextMayNotBeEmpty", "[](a)"_qba, "[](a)"_qba},
    {"NothingMayStandBetween", "[a] (b)"_qba, "[a] (b)"_qba},
    {"UnclosedDestinationStays", "[a](b"_qba, "[a](b"_qba},
    {"LinkBehindBracketsCounts", "[a] [b](c)"_qba, "[a] b"_qba},
    {"LinkInsideIsNotFoundAgain", "[[a](b)](c)"_qba, "[a](c)"_qba},
    {"ImageKeepsItsMark", "![alt](a.png)"_qba, "!alt"_qba},
    {"ImageWithoutTextGoes", "a![](b.png)c"_qba, "ac"_qba},
    {"ImageWithoutDestinationStays", "![]()"_qba, "![]()"_qba},
    {"MarkAloneIsNoImage", "!a [] ! (b)"_qba, "!a [] ! (b)"_qba},
    {"EmbedThatIsNoLinkGoes", "a![[|b]]c"_qba, "ac"_qba},
    {"EmbedMayNotBeEmpty", "![[]]"_qba, "![[]]"_qba},
    {"EmbedNeedsTwoClosingBrackets", "![[|a]b]]"_qba, "![[|a]b]]"_qba},
};

const SyntaxRow markSyntaxRows[] = {
    {"BlockReferenceGoesAnywhere", "x^2 ^block-id"_qba, "x "_qba},
    {"BlockReferenceTakesWordsOfAllScripts", "^\u65E5-\u0301\u200D\u203F\U0001D7D9_."_qba, "."_qba},
    {"BlockReferenceOfDashes", "^--"_qba, ""_qba},
    {"CaretAloneStays", "^ ^^a ^\u00B2"_qba, "^ ^ ^\u00B2"_qba},
    {"CaretTakesUnderscoresBeforeTheyGo", "^_a"_qba, ""_qba},
    {"AsteriskEndsABlockReference", "^a*b*"_qba, "b"_qba},
    {"AsterisksGo", "***a*b**"_qba, "ab"_qba},
    {"UnderscoresGo", "snake_case __a__"_qba, "snakecase a"_qba},
    {"PairsOfTildesGo", "~~a~~ ~~~~"_qba, "a "_qba},
    {"OneTildeStays", "~a~ ~~~b"_qba, "~a~ ~b"_qba},
    {"TildesMeetWhereMarksWere", "~*_~"_qba, ""_qba},
    {"TildesMeetOnce", "~*~_~a"_qba, "~a"_qba},
    {"TildesWithTextBetweenStay", "~a~*b"_qba, "~a~b"_qba},
    {"AsteriskUnderAMarkGoes", "*\u0301"_qba, "\u0301"_qba},
};

const SyntaxRow lineSyntaxRows[] = {
    {"HeadingMarkGoes", "# a\n###### b"_qba, "a\nb"_qba},
    {"HeadingTakesAllBlanks", "# \t\u3000a"_qba, "a"_qba},
    {"SevenMarksAreNoHeading", "####### a"_qba, "####### a"_qba},
    {"HeadingNeedsABlank", "#a\n#"_qba, "#a\n#"_qba},
    {"HeadingMayBeEmpty", "# \na"_qba, "\na"_qba},
    {"HeadingStartsItsLine", " # a"_qba, " # a"_qba},
    {"HeadingIsLookedForOnce", "# # a"_qba, "# a"_qba},
    {"RuleGoes", "---\n----"_qba, "\n"_qba},
    {"TwoDashesAreNoRule", "--"_qba, "--"_qba},
    {"RuleHoldsNothingElse", "---a\n--- \n ---"_qba, "---a\n--- \n ---"_qba},
    {"ListMarkGoes", "- a\n+ b\n\t -  c"_qba, "a\nb\nc"_qba},
    {"ListMarkNeedsABlank", "-a\n-\n+"_qba, "-a\n-\n+"_qba},
    {"ListMarkIsLookedForOnce", "- - a"_qba, "- a"_qba},
    {"NumberGoes", "1. a\n  23.\tb"_qba, "a\nb"_qba},
    {"NumbersOfAllScriptsGo", "\u0663. a\n\u00A0\U0001D7D9\u0967.\u3000b"_qba, "a\nb"_qba},
    {"NumberNeedsADotAndABlank", "1 a\n1.a\n1) a\n1."_qba, "1 a\n1.a\n1) a\n1."_qba},
    {"DotAloneIsNoNumber", ". a"_qba, ". a"_qba},
    {"FractionIsNoNumber", "\u00B2. a"_qba, "\u00B2. a"_qba},
    {"NumberBehindAListMarkGoes", "- 1. a"_qba, "a"_qba},
    {"ListMarkBehindANumberStays", "1. - a"_qba, "- a"_qba},
    {"QuoteMarkGoesWithOneBlank", ">  a\n>b\n>\u3000c"_qba, " a\nb\nc"_qba},
    {"OneQuoteMarkGoes", "> > a\n>>"_qba, "> a\n>"_qba},
    {"QuoteStartsItsLine", " > a"_qba, " > a"_qba},
    {"HeadingInAQuoteStays", "> # a"_qba, "# a"_qba},
    {"LinesOfAnyEndAreJoinedByALineFeed", "- a\v- b\f- c\r- d\u0085- e\u2028- f\u2029- g"_qba,
     "a\nb\nc\nd\ne\nf\ng"_qba},
    {"TwoLineEndsAreTwo", "a\r\n- b\n\n"_qba, "a\n\nb\n\n"_qba},
    {"BlanksBeforeALineEndStay", " \n- \n "_qba, " \n\n "_qba},
    {"BlankOnTheNextLineIsNone", "#\n a\n-\n b\n1.\n c"_qba, "#\n a\n-\n b\n1.\n c"_qba},
    {"MarkOfTheByteOrderIsNoBlank", "\uFEFF- a"_qba, "\uFEFF- a"_qba},
    {"NothingStaysNothing", ""_qba, ""_qba},
};

TEST_P(SyntaxOf, IsRemoved)
{
    EXPECT_EQ(ContentProcessor::removeObsidianSyntax(GetParam().text), GetParam().result);
}

const auto syntaxName = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(Links, SyntaxOf, testing::ValuesIn(linkSyntaxRows), syntaxName);
INSTANTIATE_TEST_SUITE_P(Marks, SyntaxOf, testing::ValuesIn(markSyntaxRows), syntaxName);
INSTANTIATE_TEST_SUITE_P(Lines, SyntaxOf, testing::ValuesIn(lineSyntaxRows), syntaxName);

} // namespace

} // namespace jotwell
