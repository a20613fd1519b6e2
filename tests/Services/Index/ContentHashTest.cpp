#include "Services/Index/ContentHash.h"

#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <set>

namespace jotwell {

namespace {

TEST(ContentHashTest, EqualBytesHaveEqualHashes)
{
    const QByteArray text("Some text\n");
    const QByteArray copy(text.constData(), text.size());
    EXPECT_EQ(calculateHash(text), calculateHash(copy));
    EXPECT_EQ(calculateHash({}), calculateHash(QByteArray()));
}

TEST(ContentHashTest, EveryByteCounts)
{
    QByteArray text(300, 'a');
    std::set<ContentHash> hashes{calculateHash(text)};
    for (qsizetype at = 0; at < text.size(); ++at) {
        text[at] = 'b';
        hashes.insert(calculateHash(text));
        text[at] = 'a';
    }
    EXPECT_EQ(hashes.size(), 301U);
}

TEST(ContentHashTest, LengthCounts)
{
    std::set<ContentHash> hashes;
    for (qsizetype length = 0; length < 300; ++length)
        hashes.insert(calculateHash(QByteArray(length, '\0')));
    EXPECT_EQ(hashes.size(), 300U);
}

TEST(ContentHashTest, TextIsTheSignedValueInDecimal)
{
    EXPECT_EQ(hashText(0), u"0"_qs);
    EXPECT_EQ(hashText(42), u"42"_qs);
    EXPECT_EQ(hashText(std::numeric_limits<qint64>::max()), u"9223372036854775807"_qs);
    EXPECT_EQ(hashText(1ULL << 63), u"-9223372036854775808"_qs);
    EXPECT_EQ(hashText(std::numeric_limits<quint64>::max()), u"-1"_qs);
}

// In a child, as the key is drawn once in a process.
[[noreturn]] void sayHash()
{
    std::fprintf(stderr, "hash %s.\n", qPrintable(hashText(calculateHash("text"))));
    std::exit(0);
}

TEST(ContentHashDeathTest, AnotherRunHasAnotherKey)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const std::string own = "hash " + hashText(calculateHash("text")).toStdString() + "\\.";
    EXPECT_EXIT(sayHash(), testing::ExitedWithCode(0), testing::Not(testing::ContainsRegex(own)));
}

} // namespace

} // namespace jotwell
