#include "Views/Editor/MarkdownRules.h"

#include "Views/Editor/HighlightReference.h"
#include "Views/Editor/HostileTexts.h"

#include <gtest/gtest.h>

#include <map>

namespace jotwell {

namespace {

// Empty if the quick rule gives what the pattern gives.
std::string difference(const MarkdownRule& rule, QStringView text, qsizetype limit)
{
    const QStringView seen = text.first(limit);
    const std::vector<TextRange> plain = rule.plain(text, limit);
    const std::vector<TextRange> quick = rule.quick(seen);
    return plain == quick ? std::string()
                          : described(seen, quick) + "\ninstead of " + described(seen, plain);
}

std::string described(QStringView text, const std::vector<Heading>& headings)
{
    std::vector<TextRange> ranges;
    for (const Heading& heading : headings) {
        ranges.push_back(heading.marks);
        ranges.push_back(heading.title);
    }
    return jotwell::described(text, ranges);
}

std::string headingDifference(QStringView text, qsizetype limit)
{
    const QStringView seen = text.first(limit);
    const std::vector<Heading> plain = plainHeadings(text, limit);
    const std::vector<Heading> quick = headings(seen);
    return plain == quick ? std::string()
                          : described(seen, quick) + "\ninstead of " + described(seen, plain);
}

struct RuleLetters {
    const char* rule;
    QStringView letters;
    qsizetype longest;
};

const std::vector<RuleLetters>& lettersOfRules()
{
    static const std::vector<RuleLetters> all = {{"bold", u"*_\na", 8},
                                                 {"italic", u"*_ a", 8},
                                                 {"inline code", u"`a\n", 9},
                                                 {"code block", u"`a\n", 11},
                                                 {"list marker", u"-* \na", 7},
                                                 {"list marker", u"+ \r\na", 7},
                                                 {"link", u"[]()a", 7},
                                                 {"link", u"[](a", 9},
                                                 {"strikethrough", u"~\na", 10},
                                                 {"strikethrough", u"~\r ", 9},
                                                 {"tag", u"#a- ", 7}};
    return all;
}

const MarkdownRule& ruleNamed(const std::string& name)
{
    for (const MarkdownRule& rule : markdownRules()) {
        if (rule.name == name)
            return rule;
    }
    throw std::invalid_argument(name);
}

TEST(MarkdownRules, EveryShortTextOfTheirLettersIsAsThePatternsHaveIt)
{
    for (const RuleLetters& each : lettersOfRules()) {
        const MarkdownRule& rule = ruleNamed(each.rule);
        forEachText(each.letters, each.longest, [&rule](const QString& text) {
            ASSERT_EQ(difference(rule, text, text.size()), "")
                << rule.name << " of " << qPrintable(text);
        });
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

TEST(MarkdownRules, EveryShortTextWithHeadingsIsAsThePatternHasIt)
{
    for (const QStringView letters : {u"# \na", u"# \r\n", u"#\t a\n"}) {
        forEachText(letters, 7, [](const QString& text) {
            ASSERT_EQ(headingDifference(text, text.size()), "") << qPrintable(text);
        });
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
    forEachText(u"# a", 9, [](const QString& text) {
        ASSERT_EQ(headingDifference(text, text.size()), "") << qPrintable(text);
    });
}

TEST(MarkdownRules, NoRuleSeesWhatStandsBehindTheLimit)
{
    for (const RuleLetters& each : lettersOfRules()) {
        const MarkdownRule& rule = ruleNamed(each.rule);
        forEachText(each.letters, 5, [&rule](const QString& text) {
            for (qsizetype limit = 0; limit < text.size(); ++limit)
                ASSERT_EQ(difference(rule, text, limit), "")
                    << rule.name << " of " << qPrintable(text);
        });
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

TEST(MarkdownRules, HostileTextsAreAsThePatternsHaveThem)
{
    HostileTexts texts;
    for (int round = 0; round < 40'000; ++round) {
        const QString text = texts.next(40);
        const qsizetype limit = text.size() - (round % 2 == 0 ? 0 : texts.upTo(text.size()));
        ASSERT_EQ(headingDifference(text, limit), "") << qPrintable(text);
        for (const MarkdownRule& rule : markdownRules())
            ASSERT_EQ(difference(rule, text, limit), "") << rule.name << " of " << qPrintable(text);
    }
}

// A rule that searched anew at each mark would need minutes for each of these.
TEST(MarkdownRules, EndlessTextsAreReadOnce)
{
    std::size_t found = 0;
    for (const QString& text : endlessTexts()) {
        found += headings(text).size();
        for (const MarkdownRule& rule : markdownRules())
            found += rule.quick(text).size();
    }
    EXPECT_GT(found, 100'000U);
}

// What the comparisons above rest on: the patterns themselves.

struct Example {
    const char* rule;
    QStringView text;
    const char* found;
};

TEST(MarkdownRules, FindWhatTheTableOfRulesSays)
{
    const Example examples[] = {{"bold", u"a **b** __c__ **d\n**", "2:**b**; 8:__c__"},
                                {"bold", u"**** a", "0:****"},
                                {"bold", u"**a__ b**", "0:**a__ b**"},
                                {"bold", u"**a\u2028b** c**", "5:** c**"},
                                {"italic", u"*a* _b_ *c_ **d** *e**", "0:*a*; 4:_b_"},
                                {"italic", u"_a\nb_", "0:_a\nb_"},
                                {"inline code", u"`a` `` `b\nc`", "0:`a`; 5:` `"},
                                {"code block", u"```a\n``` ```", "0:```a\n```"},
                                {"list marker", u"- a\n  * b\n\n+ c\n-d", "0:-; 6:*; 11:+"},
                                {"list marker", u"- \n  - b", "0:-"},
                                {"link", u"[a](b) [](c) [d]() [e] (f) [[g](h)", "1:a; 28:[g"},
                                {"strikethrough", u"~~a~~ ~b~ ~~~~ ~~c\n~~", "0:~~a~~; 10:~~~~"},
                                {"tag", u"#a b#c ##d # #1 #e-f", "0:#a; 4:#c; 8:#d; 13:#1; 16:#e"}};
    for (const Example& example : examples) {
        const MarkdownRule& rule = ruleNamed(example.rule);
        EXPECT_EQ(jotwell::described(example.text, rule.quick(example.text)), example.found)
            << rule.name;
    }
}

TEST(MarkdownRules, HeadingsMayReachIntoLinesFurtherDown)
{
    const QStringView text = u"# \n\n# a\r\n###### b \n####### c\n#d\n x # e\n#\u00a0f";
    EXPECT_EQ(described(text, headings(text)), "0:#; 4:# a; 9:######; 16:b ; 39:#; 41:f");
}

} // namespace

} // namespace jotwell
