#include "Views/Results/SnippetParts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

struct Case {
    const char* name;
    QString snippet;
    SnippetParts parts;
};

SnippetPart plain(const QString& text)
{
    return {text, false};
}

SnippetPart marked(const QString& text)
{
    return {text, true};
}

class SnippetPartsTest : public testing::TestWithParam<Case> {};

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");
const QString acute = QStringLiteral("\u0301");

// NOLINTNEXTLINE(cert-err58-cpp)
const std::vector<Case> cases{
    {"Nothing", {}, {}},
    {"PlainText", QStringLiteral("a & b"), {plain(QStringLiteral("a & b"))}},
    {"OneHit", QStringLiteral("a<mark>b</mark>c"), {plain(a), marked(b), plain(c)}},
    {"HitAtTheEnds",
     QStringLiteral("<mark>a</mark>b<mark>c</mark>"),
     {marked(a), plain(b), marked(c)}},
    {"NothingMarked", QStringLiteral("<mark></mark>"), {}},
    {"NothingMarkedWithin", QStringLiteral("a<mark></mark>b"), {plain(a), plain(b)}},
    {"NeverOpened", QStringLiteral("a</mark>b"), {marked(a), plain(b)}},
    {"NeverClosed", QStringLiteral("a<mark>b"), {plain(a), marked(b)}},
    {"OpenedTwice", QStringLiteral("<mark>a<mark>b</mark>c"), {marked(a), marked(b), plain(c)}},
    {"ClosedTwice", QStringLiteral("<mark>a</mark>b</mark>c"), {marked(a), marked(b), plain(c)}},
    {"OnlyBlanks", QStringLiteral("  "), {plain(QStringLiteral("  "))}},
    {"UpperCaseIsText", QStringLiteral("a<MARK>b"), {plain(QStringLiteral("a<MARK>b"))}},
    {"OtherTagsAreText",
     QStringLiteral("<b>a</b><mark b>"),
     {plain(QStringLiteral("<b>a</b><mark b>"))}},
    {"HalfATag", QStringLiteral("a<mark"), {plain(QStringLiteral("a<mark"))}},
    {"ATagAfterAnAngle", QStringLiteral("<<mark>a"), {plain(QStringLiteral("<")), marked(a)}},
    {"ATagInATag",
     QStringLiteral("<ma<mark>rk>"),
     {plain(QStringLiteral("<ma")), marked(QStringLiteral("rk>"))}},
    {"AnAccentMakesTheEndAnotherCharacter",
     QStringLiteral("a<mark>") + acute + b,
     {plain(QStringLiteral("a<mark>") + acute + b)}},
    {"AnAccentInsideTheTag",
     QStringLiteral("<ma") + acute + QStringLiteral("rk>b"),
     {plain(QStringLiteral("<ma") + acute + QStringLiteral("rk>b"))}},
    {"AnAccentBeforeTheTag", a + acute + QStringLiteral("<mark>b"), {plain(a + acute), marked(b)}},
    {"APrefixTakesTheAngleAlong",
     QStringLiteral("\u0600<mark>b"),
     {plain(QStringLiteral("\u0600<mark>b"))}},
    {"AnAccentOnTheClosingTag",
     QStringLiteral("<mark>a</mark>") + acute,
     {marked(QStringLiteral("a</mark>") + acute)}},
    {"Emoji",
     QStringLiteral("<mark>👩‍👩‍👧</mark>b"),
     {marked(QStringLiteral("👩‍👩‍👧")), plain(b)}},
    {"RightToLeft",
     QStringLiteral("<mark>שלום</mark> b"),
     {marked(QStringLiteral("שלום")), plain(QStringLiteral(" b"))}},
};

} // namespace

TEST_P(SnippetPartsTest, ParsesASnippet)
{
    EXPECT_EQ(parseSnippet(GetParam().snippet), GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(Snippets, SnippetPartsTest, testing::ValuesIn(cases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(SnippetParts, AreReadOutWithoutTheirTags)
{
    EXPECT_EQ(plainText(parseSnippet(QStringLiteral("a <mark>b</mark> c"))),
              QStringLiteral("a b c"));
}
