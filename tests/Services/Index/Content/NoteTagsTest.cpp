#include "Services/Index/Content/NoteTags.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct TagRow {
    const char* name;
    QByteArray text;
    TagSet tags;
};

class FrontmatterTags : public testing::TestWithParam<TagRow> {};

const TagRow fenceRows[] = {
    {"NothingHasNone", ""_qba, {}},
    {"NoteWithoutFenceHasNone", "tags: a\ntag: b\n  - c\n"_qba, {}},
    {"FenceAloneHasNone", "---"_qba, {}},
    {"BlockIsBetweenTwoFences", "tags: a\n---\ntags: b\n---\ntags: c"_qba, {u"b"_qs}},
    {"OpenBlockCounts", "---\ntags: a"_qba, {u"a"_qs}},
    {"BreakInTheBodyOpensIt", "Text\n\n---\ntags: x\n"_qba, {u"x"_qs}},
    {"ThirdFenceOpensNothing", "---\n---\ntags: a\n---\ntags: b"_qba, {}},
    {"FenceIsExactlyThreeDashes", "----\n--\n---a\na---\n --- \n---\t\ntags: a"_qba, {}},
    {"LongerDashesDoNotClose", "---\n----\ntags: a"_qba, {u"a"_qs}},
    {"MarkOfTheByteOrderHidesAFence", "\uFEFF---\ntags: a"_qba, {}},
    {"LinesEndAnyWay",
     "a\v---\ftags: a\rtags: b\u0085tags: c\u2028tags: d\u2029---\vtags: e"_qba,
     {u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}},
    {"CarriageReturnsDoNotMatter",
     "---\r\ntags: a\r\n  - b\r\n---\r\ntags: c"_qba,
     {u"a"_qs, u"b"_qs}},
};

const TagRow valueRows[] = {
    {"ListInBrackets", "---\ntags: [a, b]"_qba, {u"a"_qs, u"b"_qs}},
    {"QuoteMarksStay", "---\ntags: [\"a\"]"_qba, {u"\"a\""_qs}},
    {"MarkStays", "---\ntags: #a"_qba, {u"#a"_qs}},
    {"NothingBehindTheKeyGivesNothing", "---\ntags:\ntag: \u3000\t\n"_qba, {}},
    {"ListBehindTheKeyCounts", "---\ntags:\n  - a\n  - b"_qba, {u"a"_qs, u"b"_qs}},
    {"ValueWithoutBracketsIsOneTag", "---\ntags: a, b"_qba, {u"a, b"_qs}},
    {"BothKeysCount", "---\ntags: a\ntag: b"_qba, {u"a"_qs, u"b"_qs}},
    {"NoBlankNeeded", "---\ntag:a"_qba, {u"a"_qs}},
    {"KeyNeedsItsCase", "---\nTags: a\nTAG: b"_qba, {}},
    {"KeyStartsItsLine", "---\n tags: a\n\ttag: b\nxtags: c"_qba, {}},
    {"KeyNeedsItsColon", "---\ntags a\ntag : b"_qba, {}},
    {"KeysAreRemovedEverywhere", "---\ntags: a tags:tag: b"_qba, {u"a  b"_qs}},
    {"PluralGoesBeforeSingular", "---\ntag: xtatags:g:y"_qba, {u"xy"_qs}},
    {"RemovedKeysUncoverNoPlural", "---\ntag: xtatag:gs:y"_qba, {u"xtags:y"_qs}},
    {"PiecesAreTrimmed", "---\ntags: [ a\u00A0,\t b ]"_qba, {u"a"_qs, u"b"_qs}},
    {"EmptyPiecesAreDropped", "---\ntags: [,a,,b,]"_qba, {u"a"_qs, u"b"_qs}},
    {"EmptyBracketsGiveNothing", "---\ntags: []"_qba, {}},
    {"PieceOfBlanksIsAnEmptyTag", "---\ntags: [ ]"_qba, {u""_qs}},
    {"OneBracketIsAValue", "---\ntags: [\ntag: ]"_qba, {u"["_qs, u"]"_qs}},
    {"BracketsInsideStay", "---\ntags: [[a], b]"_qba, {u"[a]"_qs, u"b"_qs}},
    {"ValueIsTrimmedBeforeItsBrackets", "---\ntags:  [a] \u2003"_qba, {u"a"_qs}},
    {"CaseIsLost",
     "---\ntags: [A, a, \u00C9]\ntag: \u0130\u1E9E"_qba,
     {u"a"_qs, u"i\u0307\u00DF"_qs, u"\u00E9"_qs}},
    {"ZerosAndMarksOfTheByteOrderStay",
     "---\ntags: a\0b\ntag:\uFEFFc"_qba,
     {u"a\0b"_qs, u"\uFEFFc"_qs}},
};

const TagRow itemRows[] = {
    {"ItemUnderAnyKeyCounts", "---\naliases:\n  - A b"_qba, {u"a b"_qs}},
    {"ItemOfNothingIsAnEmptyTag", "---\n  - \n"_qba, {u""_qs}},
    {"ItemWithFourBlanksIsNone", "---\n    - a"_qba, {}},
    {"ItemWithoutBlanksIsNone", "---\n- a\n - b\n   - c"_qba, {}},
    {"ItemNeedsABlankBehindTheDash", "---\n  -a\n  -"_qba, {}},
    {"TabsAreNoBlanks", "---\n\t- a\n  -\tb"_qba, {}},
    {"ItemMarksAreRemovedEverywhere", "---\n  - a  - b"_qba, {u"ab"_qs}},
    {"ItemIsTrimmed", "---\n  - \u3000a\t"_qba, {u"a"_qs}},
    {"BracketsOfAnItemStay", "---\n  - [a, b]"_qba, {u"[a, b]"_qs}},
    {"OtherLinesAreIgnored", "---\ntitle: a\n\n# b\n  * c"_qba, {}},
};

TEST_P(FrontmatterTags, AreFound)
{
    EXPECT_EQ(extractFrontmatterTags(GetParam().text), GetParam().tags);
}

const auto rowName = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(Fences, FrontmatterTags, testing::ValuesIn(fenceRows), rowName);
INSTANTIATE_TEST_SUITE_P(Values, FrontmatterTags, testing::ValuesIn(valueRows), rowName);
INSTANTIATE_TEST_SUITE_P(Items, FrontmatterTags, testing::ValuesIn(itemRows), rowName);

class ContentTags : public testing::TestWithParam<TagRow> {};

const TagRow contentRows[] = {
    {"NothingHasNone", ""_qba, {}},
    {"TagIsAMarkAndAWord", "a #b"_qba, {u"b"_qs}},
    {"CaseIsLost", "#Tag #tag"_qba, {u"tag"_qs}},
    {"UnderscoresDashesAndDigitsStay", "#my_tag-2"_qba, {u"my_tag-2"_qs}},
    {"BacktickHoldsItBack", "`#a`"_qba, {}},
    {"BacktickFurtherOffDoesNot", "`a #b` ` #c"_qba, {u"b"_qs, u"c"_qs}},
    {"WordsAndSlashesDoNotHoldItBack", "a#b /#c \u00E9#d"_qba, {u"b"_qs, u"c"_qs, u"d"_qs}},
    {"FrontMatterCodeAndAddressesCount",
     "---\nk: #a\n---\n```\n#b\n```\nhttps://x/#c"_qba,
     {u"a"_qs, u"b"_qs, u"c"_qs}},
    {"TagsMayFollowEachOther", "#a#b##c"_qba, {u"a"_qs, u"b"_qs, u"c"_qs}},
    {"OtherLettersEndIt", "#a\u00E9 #\u00E9b"_qba, {u"a"_qs}},
    {"MarkAloneIsNone", "# a #"_qba, {}},
};

TEST_P(ContentTags, AreFound)
{
    EXPECT_EQ(extractContentTags(GetParam().text), GetParam().tags);
}

INSTANTIATE_TEST_SUITE_P(NoteTags, ContentTags, testing::ValuesIn(contentRows), rowName);

} // namespace

} // namespace jotwell
