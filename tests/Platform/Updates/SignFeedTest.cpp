#include "Platform/Updates/SignedFeeds.h"
#include "QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

/// The script that signs a feed, with a key as the documentation has it made.
class SignFeedTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(run(u"openssl"_qs,
                      {u"genpkey"_qs, u"-algorithm"_qs, u"ed25519"_qs, u"-out"_qs, u"key.pem"_qs}),
                  0);
        ASSERT_EQ(run(u"sh"_qs, {u"-c"_qs, u"openssl pkey -in key.pem -pubout -outform DER |"
                                           " tail -c 32 | base64 > public"_qs}),
                  0);
    }

    int run(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        return process.exitCode();
    }
    [[nodiscard]] int sign(const QString& key = u"key.pem"_qs) const
    {
        return run(u"/usr/bin/python3"_qs,
                   {u"-B"_qs, QStringLiteral(JOTWELL_SIGN_FEED), key, u"appcast.xml"_qs});
    }

    void write(const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(u"appcast.xml"_qs));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] QByteArray read(const QString& name = u"appcast.xml"_qs) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void expectVerified(const QByteArray& content) const
    {
        const auto publicKey = FeedKey::fromBase64(read(u"public"_qs).trimmed());
        ASSERT_TRUE(publicKey);
        const auto verified = verifiedFeed(read(), *publicKey);
        ASSERT_TRUE(verified) << verified.error().toStdString();
        EXPECT_EQ(*verified, content);
    }
    /// That the script fails and leaves the file and nothing beside it.
    void expectRefused(const QByteArray& feed, const QString& key = u"key.pem"_qs) const
    {
        write(feed);
        const QStringList files = QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
        EXPECT_NE(sign(key), 0);
        EXPECT_EQ(read(), feed);
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), files);
    }

    QTemporaryDir m_folder;
    const QByteArray m_content = feedOf(feedItem("2.0"));
};

TEST_F(SignFeedTest, SignedFeedIsOneThatTheProgramVerifies)
{
    write(m_content);
    EXPECT_EQ(sign(), 0);
    expectVerified(m_content);
}

TEST_F(SignFeedTest, SignedAgainItHasOneSignature)
{
    write(m_content);
    ASSERT_EQ(sign(), 0);
    const QByteArray once = read();
    ASSERT_EQ(sign(), 0);
    EXPECT_EQ(read(), once);
}

TEST_F(SignFeedTest, OldSignatureMakesRoomForTheNewOne)
{
    write(SigningKey(7).sign(m_content));
    ASSERT_EQ(sign(), 0);
    expectVerified(m_content);
}

TEST_F(SignFeedTest, FileKeepsItsPermissions)
{
    write(m_content);
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther;
    ASSERT_TRUE(QFile::setPermissions(m_folder.filePath(u"appcast.xml"_qs), permissions));
    ASSERT_EQ(sign(), 0);
    EXPECT_EQ(QFile::permissions(m_folder.filePath(u"appcast.xml"_qs)) &
                  ~QFile::Permissions(0x0770),
              (permissions & ~QFile::Permissions(0x0770)));
}

TEST_F(SignFeedTest, WhatTheProgramWouldNotReadIsNotSigned)
{
    expectRefused("no feed");
    expectRefused(SigningKey(7).sign(m_content) + "<!-- more -->");
    expectRefused(SigningKey(7).sign(SigningKey(7).sign(m_content)));
    expectRefused(feedOf("<!--" + QByteArray(1'000'000, ' ') + "-->"));
}

TEST_F(SignFeedTest, KeyMustBeThereAndOfItsKind)
{
    expectRefused(m_content, u"gone.pem"_qs);
    ASSERT_EQ(run(u"openssl"_qs,
                  {u"genpkey"_qs, u"-algorithm"_qs, u"ed448"_qs, u"-out"_qs, u"other.pem"_qs}),
              0);
    expectRefused(m_content, u"other.pem"_qs);
}

} // namespace

} // namespace jotwell
