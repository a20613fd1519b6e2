// The scanner against the regular expressions, over generated texts.

#include "Services/ContentDifference.h"
#include "Services/ContentSamples.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

constexpr int samples = 30'000;
constexpr std::size_t repetitions = 12;

using DifferenceOf = std::optional<ContentDifference> (*)(const QString& text);

testing::AssertionResult isSame(DifferenceOf differenceOf, const QString& text)
{
    const std::optional<ContentDifference> difference = differenceOf(text);
    if (!difference)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << difference->rule << " of\n"
           << testing::PrintToString(text.toStdU16String()) << "\n\"" << text.toStdString()
           << "\"\nshould be\n\"" << difference->expected.toStdString() << "\"\nbut is\n\""
           << difference->actual.toStdString() << '"';
}

TEST(ContentProcessorReference, ContentOfGeneratedTextsIsTheSame)
{
    ContentSamples texts(1);
    for (int count = 0; count < samples; ++count)
        ASSERT_TRUE(isSame(contentDifference, texts.next())) << "sample " << count;
}

TEST(ContentProcessorReference, TagsOfGeneratedTextsAreTheSame)
{
    ContentSamples texts(2);
    for (int count = 0; count < samples; ++count) {
        const QString text = texts.next();
        ASSERT_TRUE(isSame(tagDifference, text)) << "sample " << count;
        ASSERT_TRUE(isSame(tagDifference, u"---\n"_qs + text)) << "sample " << count;
        ASSERT_TRUE(isSame(tagDifference, u"---\ntags:"_qs + text)) << "sample " << count;
    }
}

TEST(ContentProcessorReference, RepeatedPiecesGiveTheSame)
{
    for (const QString& piece : endlessPieces()) {
        for (std::size_t times = 1; times <= repetitions; ++times) {
            const QString text = piece.repeated(static_cast<qsizetype>(times));
            for (const QString& whole : {text, text + u"]](b)```\n`|a]]"_qs, u"x"_qs + text}) {
                ASSERT_TRUE(isSame(contentDifference, whole));
                ASSERT_TRUE(isSame(tagDifference, whole));
            }
        }
    }
}

} // namespace

} // namespace jotwell
