#include "Platform/qt/Updates/FeedSignature.h"

#include "Platform/Updates/SignedFeeds.h"
#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

const QByteArray content = feedOf(feedItem("2.0"));

QByteArray replaced(QByteArray text, const QByteArray& before, const QByteArray& after)
{
    EXPECT_TRUE(text.contains(before));
    return text.replace(before, after);
}

/// Why the feed isn't taken; empty if it is.
QString refusal(const QByteArray& feed)
{
    const auto result = verifiedFeed(feed, SigningKey().publicKey());
    return result ? QString() : result.error();
}

TEST(FeedSignature, SignedBytesComeBackAsTheyAre)
{
    const SigningKey key;
    for (const QByteArray& text :
         {content, QByteArray(), QByteArray("no feed at all"), QByteArray("\0\xFF\0", 3)}) {
        const auto verified = verifiedFeed(key.sign(text), key.publicKey());
        ASSERT_TRUE(verified) << verified.error().toStdString();
        EXPECT_EQ(*verified, text);
    }
}

TEST(FeedSignature, WhiteSpaceMayFollow)
{
    const SigningKey key;
    EXPECT_EQ(refusal(key.sign(content) + " \t\r\n\n"), QString());
    EXPECT_EQ(refusal(key.sign(content).trimmed()), QString());
}

TEST(FeedSignature, EveryChangedBitIsNoticed)
{
    const QByteArray feed = SigningKey().sign(content).trimmed();
    for (qsizetype place = 0; place < feed.size(); ++place) {
        for (int bit = 0; bit < 8; ++bit) {
            QByteArray changed = feed;
            changed[place] = static_cast<char>(changed[place] ^ (1 << bit));
            ASSERT_NE(refusal(changed), QString()) << "byte " << place << ", bit " << bit;
        }
    }
}

TEST(FeedSignature, EveryTruncationIsNoticed)
{
    const QByteArray feed = SigningKey().sign(content).trimmed();
    for (qsizetype length = 0; length < feed.size(); ++length)
        ASSERT_NE(refusal(feed.first(length)), QString()) << length << " bytes";
}

TEST(FeedSignature, EveryByteMoreOrLessIsNoticed)
{
    const QByteArray feed = SigningKey().sign(content).trimmed();
    for (qsizetype place = 0; place < feed.size(); ++place) {
        QByteArray longer = feed;
        QByteArray shorter = feed;
        longer.insert(place, ' ');
        shorter.remove(place, 1);
        ASSERT_NE(refusal(longer), QString()) << "byte " << place;
        ASSERT_NE(refusal(shorter), QString()) << "byte " << place;
    }
}

TEST(FeedSignature, KeyMustBeTheRightOne)
{
    const auto result = verifiedFeed(SigningKey(2).sign(content), SigningKey(1).publicKey());
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), u"its signature is wrong"_qs);
}

struct RefusedRow {
    const char* name;
    QByteArray feed;
    QString reason;
};

void PrintTo(const RefusedRow& row, std::ostream* out)
{
    *out << row.name;
}

class RefusedSignature : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedSignature, IsNamed)
{
    EXPECT_EQ(refusal(GetParam().feed), GetParam().reason);
}

const QString none = u"it isn't signed"_qs;
const QString twice = u"it is signed more than once"_qs;
const QString others = u"its signature is for other bytes or isn't whole"_qs;
const QString behind = u"something stands behind its signature"_qs;
const QString unreadable = u"its signature can't be read"_qs;
const QString wrong = u"its signature is wrong"_qs;

const SigningKey key;
const QByteArray feed = key.sign(content);
const QByteArray comment = feed.sliced(content.size());
const QByteArray length = "length: " + QByteArray::number(content.size());

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedSignature,
    testing::Values(
        RefusedRow{"Nothing", QByteArray(), none}, RefusedRow{"Unsigned", content, none},
        RefusedRow{"FeedTwice", feed + feed, twice},
        RefusedRow{"CommentTwice", feed + comment, twice},
        RefusedRow{"SignedOverASignature", key.sign(feed), twice},
        RefusedRow{"CommentInFront", comment + content, others},
        RefusedRow{"BlankBetween", content + " " + comment, others},
        RefusedRow{"LengthOfLess",
                   content +
                       signatureComment(key.signatureOf(content.chopped(1)), content.size() - 1),
                   others},
        RefusedRow{"LengthOfMore",
                   content + signatureComment(key.signatureOf(content), content.size() + 1),
                   others},
        RefusedRow{"NegativeLength", replaced(feed, "length: ", "length: -"), others},
        RefusedRow{"PaddedLength", replaced(feed, "length: ", "length: 0"), others},
        RefusedRow{"NoLength", replaced(feed, length + "\n", ""), others},
        RefusedRow{"EndlessLength", replaced(feed, length, length + QByteArray(60, '9')), others},
        RefusedRow{"LineEndsOfAnotherSystem", content + replaced(comment, "\n", "\r\n"), none},
        RefusedRow{"NoLineEndBeforeTheEnd", replaced(feed, "\n-->", "-->"), others},
        RefusedRow{"TextBehind", feed + "<rss/>", behind},
        RefusedRow{"ZeroByteBehind", feed + QByteArray(1, '\0'), behind},
        RefusedRow{"NoBase64", replaced(feed, key.signatureOf(content).toBase64(), "!"),
                   unreadable},
        RefusedRow{"EmptySignature", replaced(feed, key.signatureOf(content).toBase64(), ""),
                   unreadable},
        RefusedRow{"ShortSignature",
                   replaced(feed, key.signatureOf(content).toBase64(),
                            key.signatureOf(content).chopped(1).toBase64()),
                   unreadable},
        RefusedRow{"ZeroSignature",
                   content + signatureComment(QByteArray(64, '\0'), content.size()), wrong},
        RefusedRow{"SignatureOfOtherBytes",
                   content + signatureComment(key.signatureOf(content + ' '), content.size()),
                   wrong}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FeedKeyText, OnlyThirtyTwoBytesInTheirUsualFormAreAKey)
{
    const QByteArray good = SigningKey().publicKeyText();
    EXPECT_TRUE(FeedKey::fromBase64(good));
    EXPECT_FALSE(FeedKey::fromBase64({}));
    EXPECT_FALSE(FeedKey::fromBase64(good + '\n'));
    EXPECT_FALSE(FeedKey::fromBase64(good.chopped(1)));
    EXPECT_FALSE(FeedKey::fromBase64(QByteArray(31, 'a').toBase64()));
    EXPECT_FALSE(FeedKey::fromBase64(QByteArray(33, 'a').toBase64()));
    EXPECT_FALSE(FeedKey::fromBase64("not a key"));
}

} // namespace

} // namespace jotwell
