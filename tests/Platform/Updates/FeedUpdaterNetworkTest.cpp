#include "Platform/Updates/FeedUpdaterFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class FeedUpdaterNetworkTest : public FeedUpdaterTest {
protected:
    /// An updater by such rules doesn't get as far as to ask the host for anything.
    void expectNoHandshake(const FeedRules& rules)
    {
        FeedUpdater updater(rules, m_clock, m_scheduler, m_defaults);
        m_server.answerFeed(goodFeed);
        updater.start(&m_news);
        updater.checkForUpdates();
        waitForEnd(updater);
        EXPECT_THAT(m_news.told, ElementsAre(u"none"_qs));
        EXPECT_TRUE(m_log.value(0).contains(u"SSL handshake failed"_qs))
            << m_log.value(0).toStdString();
        EXPECT_THAT(m_server.requests(), IsEmpty());
    }
};

TEST_F(FeedUpdaterNetworkTest, HostLearnsNothingOfTheUser)
{
    m_server.answerFeed(goodFeed);
    check();
    ASSERT_EQ(m_server.requests().size(), 1);
    const QList<QByteArray> lines = m_server.requests()[0].trimmed().split('\n');
    QStringList seen;
    for (const QByteArray& line : lines)
        seen.append(QString::fromUtf8(line.trimmed()));
    seen.removeIf([](const QString& line) { return line.startsWith(u"Host: localhost:"); });
    EXPECT_THAT(seen, testing::UnorderedElementsAre(
                          u"GET /appcast.xml HTTP/1.1"_qs, u"User-Agent: Jotwell"_qs,
                          u"Accept-Language: *"_qs, u"Accept-Encoding: identity"_qs,
                          u"Connection: Keep-Alive"_qs));
}

TEST_F(FeedUpdaterNetworkTest, ChunkedAnswerIsRead)
{
    QByteArray chunks;
    for (qsizetype place = 0; place < goodFeed.size(); place += 7) {
        const QByteArray chunk =
            goodFeed.sliced(place, std::min<qsizetype>(7, goodFeed.size() - place));
        chunks += QByteArray::number(chunk.size(), 16) + "\r\n" + chunk + "\r\n";
    }
    m_server.answer("/appcast.xml", httpResponse("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked",
                                                 chunks + "0\r\n\r\n"));
    check();
    EXPECT_EQ(m_news.told, goodNews);
}

TEST_F(FeedUpdaterNetworkTest, AnswerWithoutALengthIsRead)
{
    m_server.answer("/appcast.xml", httpResponse("HTTP/1.1 200 OK", goodFeed));
    check();
    EXPECT_EQ(m_news.told, goodNews);
}

TEST_F(FeedUpdaterNetworkTest, CompressedAnswerIsRefused)
{
    const QByteArray packed = qCompress(goodFeed).sliced(4);
    m_server.answer("/appcast.xml",
                    httpResponse("HTTP/1.1 200 OK\r\nContent-Encoding: deflate", packed));
    expectRefused(u"it comes compressed"_qs);
}

TEST_F(FeedUpdaterNetworkTest, AnswerThatBreaksOffIsRefused)
{
    m_server.answer("/appcast.xml", httpResponse("HTTP/1.1 200 OK\r\nContent-Length: " +
                                                     QByteArray::number(goodFeed.size()),
                                                 goodFeed.chopped(20)));
    expectRefused(u"Connection closed"_qs);
}

TEST_F(FeedUpdaterNetworkTest, FeedThatWasCutShortIsRefused)
{
    m_server.answerFeed(goodFeed.chopped(20));
    expectRefused(u"its signature is for other bytes or isn't whole"_qs);
}

TEST_F(FeedUpdaterNetworkTest, LargestFeedIsRead)
{
    QByteArray feed = feedOf(feedItem("2") + "<!--" + QByteArray(99'000, ' ') + "-->");
    feed = feed + QByteArray(100'000 - key.sign(feed).size(), ' ');
    feed = key.sign(feed);
    ASSERT_EQ(feed.size(), 100'000);
    m_server.answerFeed(feed);
    check();
    EXPECT_THAT(m_news.told, ElementsAre(u"loaded 1"_qs, u"found 2 -"_qs));
    m_log.clear();
    m_news.told.clear();
    m_server.answerFeed(feed + ' ');
    expectRefused(u"it is larger than 100000 bytes"_qs);
}

TEST_F(FeedUpdaterNetworkTest, EndlessAnswerIsBrokenOff)
{
    m_server.neverEnd();
    m_server.answer("/appcast.xml", httpResponse("HTTP/1.1 200 OK", QByteArray(20'000, ' ')));
    expectRefused(u"it is larger than 100000 bytes"_qs);
    EXPECT_LT(m_server.bytesSent(), 10'000'000);
}

TEST_F(FeedUpdaterNetworkTest, RedirectOnTheSameHostIsFollowed)
{
    m_server.answerFeed(goodFeed);
    m_server.answerRedirect("/old.xml", m_server.address());
    m_news.address = m_server.address(u"/old.xml"_qs);
    check();
    EXPECT_EQ(m_news.told, goodNews);
    EXPECT_EQ(m_server.requests().size(), 2);
}

TEST_F(FeedUpdaterNetworkTest, RedirectToHttpIsRefused)
{
    m_server.answerRedirect("/appcast.xml", m_server.address().replace(u"https:"_qs, u"http:"_qs));
    expectRefused(u"Insecure redirect"_qs);
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(FeedUpdaterNetworkTest, RedirectToAnotherHostIsRefused)
{
    FeedServer other;
    other.answerFeed(goodFeed);
    m_server.answerRedirect("/appcast.xml", other.address());
    expectRefused(u"Insecure redirect"_qs);
    EXPECT_THAT(other.requests(), IsEmpty());
}

TEST_F(FeedUpdaterNetworkTest, RedirectInACircleIsRefused)
{
    m_server.answerRedirect("/appcast.xml", m_server.address());
    expectRefused(u"Too many redirects"_qs);
    EXPECT_EQ(m_server.requests().size(), 4); // the first, and three redirects
}

TEST_F(FeedUpdaterNetworkTest, AnotherStatusThanOkIsRefused)
{
    for (const char* status : {"404 Not Found", "500 Oops", "203 Other", "204 No Content"}) {
        m_log.clear();
        m_news.told.clear();
        m_server.answer("/appcast.xml", httpResponse(QByteArray("HTTP/1.1 ") + status, goodFeed));
        expectRefused(u"the host answers with status "_qs + QString::fromLatin1(status, 3));
    }
}

TEST_F(FeedUpdaterNetworkTest, AnswerThatIsNoHttpIsRefused)
{
    m_server.answer("/appcast.xml", "hello\r\n\r\n" + goodFeed);
    expectRefused(u"Connection closed"_qs);
}

TEST_F(FeedUpdaterNetworkTest, AddressThatIsNotHttpsIsNeverAsked)
{
    for (const QString& address :
         {m_server.address().replace(u"https:"_qs, u"http:"_qs), u"file:///etc/hostname"_qs,
          u"ftp://localhost/appcast.xml"_qs, u"data:,feed"_qs, QString(), u"https"_qs}) {
        m_log.clear();
        m_news.told.clear();
        m_news.address = address;
        m_updater.checkForUpdates();
        EXPECT_THAT(m_news.told, IsEmpty());
        m_scheduler.advance(0ms);
        EXPECT_THAT(m_news.told, ElementsAre(u"none"_qs)) << address.toStdString();
        EXPECT_THAT(m_log,
                    ElementsAre(u"The update feed is of no use: its address isn't https"_qs));
    }
    EXPECT_THAT(m_server.requests(), IsEmpty());
}

TEST_F(FeedUpdaterNetworkTest, SilentHostIsGivenItsTimeAndNoMore)
{
    m_server.fallSilent();
    m_updater.checkForUpdates();
    m_scheduler.advance(29'999ms);
    passTurns();
    EXPECT_FALSE(m_updater.canCheckForUpdates());
    m_scheduler.advance(1ms);
    EXPECT_TRUE(m_updater.canCheckForUpdates());
    EXPECT_THAT(m_news.told, ElementsAre(u"none"_qs));
    EXPECT_THAT(m_log, ElementsAre(u"The update feed is of no use: it takes too long"_qs));
}

TEST_F(FeedUpdaterNetworkTest, TimeOfACheckThatIsOverEndsNoLaterOne)
{
    m_server.answerFeed(goodFeed);
    check();
    m_scheduler.advance(29s);
    m_server.fallSilent();
    m_updater.checkForUpdates();
    m_scheduler.advance(2s);
    EXPECT_FALSE(m_updater.canCheckForUpdates());
}

TEST_F(FeedUpdaterNetworkTest, CertificateForAnotherHostIsRefused)
{
    m_news.address = m_server.address(u"/appcast.xml"_qs, u"127.0.0.1"_qs);
    m_server.answerFeed(goodFeed);
    expectRefused(u"SSL handshake failed: The host name did not match"_qs);
    EXPECT_THAT(m_server.requests(), IsEmpty());
}

TEST_F(FeedUpdaterNetworkTest, ExpiredCertificateIsRefused)
{
    FeedServer expired(TestCertificates::usual().expiredHost());
    expired.answerFeed(goodFeed);
    m_news.address = expired.address();
    expectRefused(u"SSL handshake failed: The certificate has expired"_qs);
    EXPECT_THAT(expired.requests(), IsEmpty());
}

TEST_F(FeedUpdaterNetworkTest, CertificateOfAnUnknownAuthorityIsRefused)
{
    FeedRules strangers = rules();
    strangers.limits.authorities = {TestCertificates().authority()};
    expectNoHandshake(strangers);
}

TEST_F(FeedUpdaterNetworkTest, AuthoritiesOfTheSystemDoNotVouchForATestsHost)
{
    FeedRules usual = rules();
    usual.limits.authorities.clear();
    expectNoHandshake(usual);
}

TEST_F(FeedUpdaterNetworkTest, HostThatTakesNoConnectionsIsRefused)
{
    {
        const FeedServer gone;
        m_news.address = gone.address();
    }
    expectRefused(u"Connection refused"_qs);
}

TEST_F(FeedUpdaterNetworkTest, HostThatDoesNotExistIsRefused)
{
    m_news.address = u"https://nowhere.invalid/appcast.xml"_qs;
    expectRefused(u"Host nowhere.invalid not found"_qs);
}

} // namespace

} // namespace jotwell
