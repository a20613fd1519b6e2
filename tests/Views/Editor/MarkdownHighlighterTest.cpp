#include "Views/Editor/MarkdownHighlighter.h"

#include "Support/TextUnits.h"
#include "Views/Editor/AttributedText.h"
#include "Views/Editor/HighlightReference.h"
#include "Views/Editor/HostileTexts.h"

#include <gtest/gtest.h>

#include <ostream>

namespace jotwell {

namespace {

struct Styled {
    const char* rule;
    QStringView text;
    const char* runs;
};

void PrintTo(const Styled& styled, std::ostream* out)
{
    *out << styled.rule;
}

class MarkdownHighlighterTable : public testing::TestWithParam<Styled> {};

TEST_P(MarkdownHighlighterTable, Styles)
{
    const QStringView text = GetParam().text;
    EXPECT_EQ(described(text, quickMarkdown(text, characterCount(text))), GetParam().runs);
}

const Styled elements[] = {
    {"plain text stays plain", u"a * b _ c # d", ""},
    {"heading of level 1", u"# Title", "0:# 14 bold; 2:Title 19 bold"},
    {"heading of level 2", u"## Title", "0:## 14 bold; 3:Title 18 bold"},
    {"heading of level 3", u"### Title", "0:### 14 bold; 4:Title 17 bold"},
    {"heading of level 4", u"#### Title", "0:#### 14 bold; 5:Title 16 bold"},
    {"heading of level 5", u"##### Title", "0:##### 14 bold; 6:Title 16 bold"},
    {"heading of level 6", u"###### Title", "0:###### 14 bold; 7:Title 16 bold"},
    {"no heading of level 7", u"####### Title", ""},
    {"no heading without a blank", u"#tag", "0:#tag mono 13 bold black"},
    {"bold with its stars", u"a **bold** b", "2:**bold** 14 bold"},
    {"bold by underscores", u"__a*b__", "0:__a*b__ 14 bold"},
    {"italic with its stars", u"a *it* b", "2:*it* 14 italic"},
    {"italic by underscores", u"_a_", "0:_a_ 14 italic"},
    {"inline code", u"a `code` b", "2:`code` mono 13"},
    {"code block", u"```\na\n``` b", "0:```\na\n``` mono 13"},
    {"list marker in the fourth line", u"a\nb\nc\n  - d", "8:- 14 bold"},
    {"all list markers", u"- a\n* b\n+ c", "0:- 14 bold; 4:* 14 bold; 8:+ 14 bold"},
    {"link underlines its name alone", u"[name](target)", "1:name underlined"},
    {"strikethrough", u"a ~~b~~ c", "2:~~b~~ struck"},
    {"tag", u"a#b c", "1:#b mono 13 bold black"}};

const Styled overlaps[] = {
    {"bold in a title has the size of text", u"# a **b**",
     "0:# 14 bold; 2:a  19 bold; 4:**b** 14 bold"},
    {"italic over bold", u"**a _b_ c**", "0:**a  14 bold; 4:_b_ 14 italic; 7: c** 14 bold"},
    {"the inner underscores of bold are italic", u"__a__",
     "0:_ 14 bold; 1:_a_ 14 italic; 4:_ 14 bold"},
    {"the inner stars of bold are not", u"**a**", "0:**a** 14 bold"},
    {"code over bold", u"**a `b` c**", "0:**a  14 bold; 4:`b` mono 13; 7: c** 14 bold"},
    {"code over italic", u"*a `b` c*", "0:*a  14 italic; 3:`b` mono 13; 6: c* 14 italic"},
    {"code block over bold and italic", u"``` **a** *b*\n```", "0:``` **a** *b*\n``` mono 13"},
    {"list marker over the code block", u"```\n- a\n```",
     "0:```\n mono 13; 4:- 14 bold; 5: a\n``` mono 13"},
    {"list marker over italic", u"* a*", "0:* 14 bold; 1: a* 14 italic"},
    {"tag in a code block", u"``` #a ```",
     "0:```  mono 13; 4:#a mono 13 bold black; 6: ``` mono 13"},
    {"tag over a title", u"# a #b", "0:# 14 bold; 2:a  19 bold; 4:#b mono 13 bold black"},
    {"lines and fonts are kinds of their own", u"~~[**a**](b) #c~~",
     "0:~~[ struck; 3:**a** 14 bold underlined struck; 8:](b)  struck; "
     "13:#c mono 13 bold black struck; 15:~~ struck"}};

INSTANTIATE_TEST_SUITE_P(Elements, MarkdownHighlighterTable, testing::ValuesIn(elements));
INSTANTIATE_TEST_SUITE_P(Overlaps, MarkdownHighlighterTable, testing::ValuesIn(overlaps));

// The number of characters bounds the search in UTF-16 units.
const Styled mixtures[] = {
    {"the end behind an emoji stays plain", u"\U0001F600 #a b", "3:#a mono 13 bold black"},
    {"a tag at the end behind an emoji is cut", u"\U0001F600 #ab", "3:#a mono 13 bold black"},
    {"a mark at the limit is none", u"\U0001F600 **b**", ""},
    {"a title at the limit is cut", u"# \U0001F600\U0001F600ab",
     "0:# 14 bold; 2:\U0001F600\U0001F600 19 bold"},
    {"combining marks count as well", u"e\u0301e\u0301 _a_ _b_", "5:_a_ 14 italic"},
    {"CR LF is one character", u"\r\n\r\n`a`", ""}};

INSTANTIATE_TEST_SUITE_P(Mixtures, MarkdownHighlighterTable, testing::ValuesIn(mixtures));

TEST(MarkdownHighlighter, ALimitThatPartsASurrogatePairLeavesNoTag)
{
    EXPECT_EQ(described(u"#\U0001D49C", quickMarkdown(u"#\U0001D49C", 2)), "");
    EXPECT_EQ(described(u"#\U0001D49C", quickMarkdown(u"#\U0001D49C", 3)),
              "0:#\U0001D49C mono 13 bold black");
}

TEST(MarkdownHighlighter, TakesNoAttributeAway)
{
    AttributedText attributed(7);
    attributed.expand({0, 7});
    attributed.setColor({0, 7}, TextColor::systemBlue);
    MarkdownHighlighter::shared().applyMarkdownFontStyling(attributed, u"a **b**", 7);
    EXPECT_EQ(described(u"a **b**", attributed.runs()),
              "0:a  blue expanded; 2:**b** 14 bold blue expanded");
}

TEST(MarkdownHighlighter, HostileTextsLookAsThePlainRulesHaveThem)
{
    HostileTexts texts;
    for (int round = 0; round < 10'000; ++round) {
        const QString text = texts.next(60);
        for (const qsizetype limit : {characterCount(text), text.size()})
            ASSERT_EQ(described(text, quickMarkdown(text, limit)),
                      described(text, plainMarkdown(text, limit)));
    }
}

} // namespace

} // namespace jotwell
