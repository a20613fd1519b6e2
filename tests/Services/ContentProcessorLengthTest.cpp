// Long texts of every trap, which nothing but a linear scanner gets through in time: these take
// seconds, and one that takes the square would take hours.

#include "Services/ContentProcessor.h"
#include "Services/ContentSamples.h"
#include "Services/Index/Content/NoteTags.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

constexpr qsizetype length = 4'000'000;

QByteArray endless(const QString& piece, const QByteArray& start = {})
{
    const QByteArray utf8 = piece.toUtf8();
    return start + utf8.repeated(length / utf8.size());
}

class EndlessText : public testing::TestWithParam<QString> {};

TEST_P(EndlessText, IsCleaned)
{
    const QByteArray text = endless(GetParam());
    EXPECT_LE(ContentProcessor::cleanedContent(text).text.size(), 2 * text.size());
}

TEST_P(EndlessText, IsProcessed)
{
    const QByteArray text = endless(GetParam());
    EXPECT_LE(ContentProcessor::processContent(text).codeBlocks.size(), text.size() / 7);
}

TEST_P(EndlessText, IsSearchedForTags)
{
    for (const QByteArray& start : {""_qba, "---\n"_qba, "---\ntags: ["_qba}) {
        const QByteArray text = endless(GetParam(), start);
        EXPECT_LE(extractFrontmatterTags(text).size() + extractContentTags(text).size(), 4);
    }
}

INSTANTIATE_TEST_SUITE_P(ContentProcessor, EndlessText, testing::ValuesIn(endlessPieces()),
                         [](const auto& info) { return "Piece" + std::to_string(info.index); });

TEST(EndlessText, ManyDifferentTagsAreCollected)
{
    constexpr int count = 300'000;
    QByteArray text = "---\n"_qba;
    for (int number = 0; number < count; ++number)
        text += "  - #t" + QByteArray::number(number) + '\n';
    EXPECT_EQ(extractFrontmatterTags(text).size(), count);
    EXPECT_EQ(extractContentTags(text).size(), count);
    EXPECT_EQ(ContentProcessor::cleanedContent(text).hashtags.size(), count);
}

TEST(EndlessText, BlanksAreOneBlank)
{
    const QByteArray blanks(length, ' ');
    EXPECT_EQ(ContentProcessor::cleanedContent("a" + blanks + "- b" + blanks).text, "a - b"_qba);
}

} // namespace

} // namespace jotwell
