#include "Support/FileText.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/stat.h>

namespace jotwell {

namespace {

class FileText : public testing::Test {
protected:
    QString file(const QByteArray& bytes)
    {
        QString path = m_folder.filePath(u"file"_qs);
        QFile target(path);
        EXPECT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
        return path;
    }

    QTemporaryDir m_folder;
};

TEST_F(FileText, GivesTheTextWhole)
{
    const auto text = readTextFile(file("---\r\na: \xc3\xa4\n---\n\0x"));
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, u"---\r\na: \u00e4\n---\n"_qs);
}

TEST_F(FileText, KeepsNulBytesAndByteOrderMarks)
{
    const auto text = readTextFile(file(QByteArray("\xef\xbb\xbf"
                                                   "a\0b",
                                                   6)));
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), 4);
    EXPECT_EQ(text->front(), QChar(0xfeff));
    EXPECT_EQ(text->toUtf8(), QByteArray("\xef\xbb\xbf"
                                         "a\0b",
                                         6));
}

TEST_F(FileText, AnEmptyFileIsAnEmptyText)
{
    const auto text = readTextFile(file(""));
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->isEmpty());
}

TEST_F(FileText, ALargeFileComesWhole)
{
    const QByteArray bytes(3'000'001, 'x');
    const auto text = readTextFile(file(bytes));
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), bytes.size());
}

TEST_F(FileText, FilesWithoutASizeAreReadToTheirEnd)
{
    const auto text = readTextFile(u"/proc/self/status"_qs);
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->contains(u"VmRSS"));
}

TEST_F(FileText, BytesThatAreNoUtf8AreRefused)
{
    for (const QByteArray& bytes : {QByteArray("\xff"), QByteArray("a\xc3"),
                                    QByteArray("\xed\xa0\x80"), QByteArray("\xc0\x80")})
        EXPECT_EQ(readTextFile(file(bytes)).error().code, EILSEQ) << bytes.toHex().constData();
}

TEST_F(FileText, WhatIsNoFileIsRefusedAtOnce)
{
    EXPECT_EQ(readFile(m_folder.path()).error().code, EISDIR);
    const QString fifo = m_folder.filePath(u"fifo"_qs);
    ASSERT_EQ(::mkfifo(qPrintable(fifo), 0600), 0);
    EXPECT_EQ(readFile(fifo).error().code, EINVAL);
    EXPECT_EQ(readFile(u"/dev/null"_qs).error().code, EINVAL);
    EXPECT_EQ(readFile(m_folder.filePath(u"none"_qs)).error().code, ENOENT);
    EXPECT_EQ(readFile(m_folder.path() + QChar(0)).error().code, EINVAL);
}

} // namespace

} // namespace jotwell
