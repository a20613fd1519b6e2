#include "Support/AtomicFile.h"

#include "Fakes/FailingFileCalls.h"
#include "Support/FileText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

const QByteArray oldBytes = "what was there before";
const QByteArray newBytes = "# New\n\nsome text\n";

/// What the file system under the folder can do.
enum class Abilities { all, noExchange, noNameless, neither };

class AtomicFileOn : public testing::TestWithParam<Abilities> {
protected:
    void SetUp() override
    {
        m_calls.hasNamelessFiles =
            GetParam() == Abilities::all || GetParam() == Abilities::noExchange;
        m_calls.hasExchange = GetParam() == Abilities::all || GetParam() == Abilities::noNameless;
    }

    [[nodiscard]] QString path() const { return m_folder.filePath(u"note.md"_qs); }

    void put(const QString& path, const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] static QByteArray bytesAt(const QString& path)
    {
        const auto bytes = readFile(path);
        return bytes ? *bytes : QByteArray("(nothing)");
    }

    /// Everything in the folder, hidden files too.
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

    QTemporaryDir m_folder;
    FailingFileCalls m_calls;
    AtomicFile m_file{m_calls};
};

std::string abilitiesName(const testing::TestParamInfo<Abilities>& row)
{
    static const char* const names[] = {"WithAll", "WithoutExchange", "WithoutNameless",
                                        "WithNeither"};
    return names[static_cast<int>(row.param)];
}

INSTANTIATE_TEST_SUITE_P(FileSystem, AtomicFileOn,
                         testing::Values(Abilities::all, Abilities::noExchange,
                                         Abilities::noNameless, Abilities::neither),
                         abilitiesName);

TEST_P(AtomicFileOn, MakesANewFile)
{
    EXPECT_TRUE(m_file.write(path(), newBytes));
    EXPECT_EQ(bytesAt(path()), newBytes);
    EXPECT_EQ(names(), QStringList{u"note.md"_qs});
}

TEST_P(AtomicFileOn, MakesAnEmptyFile)
{
    EXPECT_TRUE(m_file.write(path(), QByteArray()));
    EXPECT_EQ(bytesAt(path()), QByteArray());
}

TEST_P(AtomicFileOn, ReplacesAFileAndLeavesNoTrace)
{
    put(path(), oldBytes);
    EXPECT_TRUE(m_file.write(path(), newBytes));
    EXPECT_EQ(bytesAt(path()), newBytes);
    EXPECT_EQ(names(), QStringList{u"note.md"_qs});
}

TEST_P(AtomicFileOn, ANewFileHasTheUsualPermissions)
{
    const mode_t before = ::umask(022);
    EXPECT_TRUE(m_file.write(path(), newBytes));
    ::umask(before);
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0644U);
}

TEST_P(AtomicFileOn, AReplacedFileKeepsItsPermissions)
{
    put(path(), oldBytes);
    ASSERT_EQ(::chmod(qPrintable(path()), 0640), 0);
    EXPECT_TRUE(m_file.write(path(), newBytes));
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_P(AtomicFileOn, AFileForItsOwnerAloneIsThatFromTheStart)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(m_file.write(path(), newBytes, AtomicFile::Permissions::ownerOnly));
        struct stat status = {};
        ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600U);
        ASSERT_EQ(::chmod(qPrintable(path()), 0644), 0);
    }
}

TEST_P(AtomicFileOn, ASymbolicLinkStaysAndItsTargetIsWritten)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"real"_qs));
    put(m_folder.filePath(u"real/target.md"_qs), oldBytes);
    ASSERT_EQ(::symlink("real/target.md", qPrintable(m_folder.filePath(u"hop.md"_qs))), 0);
    ASSERT_EQ(::symlink("hop.md", qPrintable(path())), 0);
    EXPECT_TRUE(m_file.write(path(), newBytes));
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(bytesAt(m_folder.filePath(u"real/target.md"_qs)), newBytes);
    EXPECT_EQ(names(), (QStringList{u"hop.md"_qs, u"note.md"_qs, u"real"_qs}));
}

TEST_P(AtomicFileOn, TheFolderAboveALinkedOneIsAsTheSystemSeesIt)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"far/away"_qs));
    ASSERT_EQ(::symlink("far/away", qPrintable(m_folder.filePath(u"link"_qs))), 0);
    EXPECT_TRUE(m_file.write(m_folder.filePath(u"link/../a.md"_qs), newBytes));
    EXPECT_EQ(bytesAt(m_folder.filePath(u"far/a.md"_qs)), newBytes);
}

TEST_P(AtomicFileOn, ALinkToNothingMakesItsTarget)
{
    ASSERT_EQ(::symlink("later.md", qPrintable(path())), 0);
    EXPECT_TRUE(m_file.write(path(), newBytes));
    EXPECT_EQ(bytesAt(m_folder.filePath(u"later.md"_qs)), newBytes);
}

TEST_P(AtomicFileOn, AnyFailingCallLeavesANewFileAbsent)
{
    int call = 0;
    for (;; ++call) {
        m_calls.failAt(call, EIO);
        const auto written = m_file.write(path(), newBytes);
        if (!m_calls.hasFailed())
            break;
        if (written) {
            // Nothing but the closing of a file that is safe already may fail unnoticed.
            EXPECT_EQ(m_calls.calls().at(call), u"close"_qs) << call;
            ASSERT_EQ(bytesAt(path()), newBytes);
            ASSERT_TRUE(QFile::remove(path()));
        } else {
            EXPECT_EQ(written.error().code, EIO) << call;
        }
        EXPECT_EQ(names(), QStringList()) << call << qPrintable(m_calls.calls().join(u' '));
    }
    EXPECT_EQ(bytesAt(path()), newBytes);
    EXPECT_GE(call, 6);
}

TEST_P(AtomicFileOn, AnyFailingCallLeavesAReplacedFileWhole)
{
    put(path(), oldBytes);
    int call = 0;
    for (;; ++call) {
        m_calls.failAt(call, EIO);
        const auto written = m_file.write(path(), newBytes);
        if (!m_calls.hasFailed())
            break;
        EXPECT_EQ(bytesAt(path()), written ? newBytes : oldBytes)
            << call << qPrintable(m_calls.calls().join(u' '));
        if (!written) {
            EXPECT_EQ(written.error().code, EIO) << call;
        }
        // Only a temporary whose removal itself failed may stay, until the next write.
        if (m_calls.calls().at(call) != u"unlink") {
            EXPECT_EQ(names(), QStringList{u"note.md"_qs}) << call;
        }
        put(path(), oldBytes);
    }
    EXPECT_EQ(bytesAt(path()), newBytes);
    EXPECT_EQ(names(), QStringList{u"note.md"_qs});
    EXPECT_GE(call, 7);
}

TEST_P(AtomicFileOn, ShortAndInterruptedWritesGoOn)
{
    class Stuttering : public FailingFileCalls {
    public:
        ssize_t write(int descriptor, const void* bytes, std::size_t count) override
        {
            if (++m_turn % 2 == 1) {
                errno = EINTR;
                return -1;
            }
            return FailingFileCalls::write(descriptor, bytes, std::min<std::size_t>(count, 3));
        }

    private:
        int m_turn = 0;
    } calls;
    calls.hasNamelessFiles = m_calls.hasNamelessFiles;
    EXPECT_TRUE(AtomicFile(calls).write(path(), newBytes));
    EXPECT_EQ(bytesAt(path()), newBytes);
}

TEST_P(AtomicFileOn, WhatIsNoFileIsLeftAlone)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"note.md"_qs));
    put(path() + u"/inside"_qs, oldBytes);
    EXPECT_EQ(m_file.write(path(), newBytes).error().code, EISDIR);
    EXPECT_EQ(bytesAt(path() + u"/inside"_qs), oldBytes);

    const QString fifo = m_folder.filePath(u"fifo"_qs);
    ASSERT_EQ(::mkfifo(qPrintable(fifo), 0600), 0);
    EXPECT_EQ(m_file.write(fifo, newBytes).error().code, EINVAL);
    EXPECT_EQ(names(), (QStringList{u"fifo"_qs, u"note.md"_qs}));
}

TEST_P(AtomicFileOn, PathsThatNameNoFileFailClearly)
{
    EXPECT_EQ(m_file.write(QString(), newBytes).error().code, EINVAL);
    EXPECT_EQ(m_file.write(path() + QChar(0) + u"x"_qs, newBytes).error().code, EINVAL);
    EXPECT_EQ(m_file.write(m_folder.filePath(u"none/note.md"_qs), newBytes).error().code, ENOENT);
    const QString longName = m_folder.filePath(QString(300, u'x'));
    EXPECT_EQ(m_file.write(longName, newBytes).error().code, ENAMETOOLONG);
    ASSERT_EQ(::symlink("round.md", qPrintable(m_folder.filePath(u"round.md"_qs))), 0);
    EXPECT_EQ(m_file.write(m_folder.filePath(u"round.md"_qs), newBytes).error().code, ELOOP);
    EXPECT_EQ(names(), QStringList{u"round.md"_qs});
}

TEST_P(AtomicFileOn, TheLongestNameOfAllIsStillAName)
{
    const QString longest = m_folder.filePath(QString(255, u'x'));
    EXPECT_TRUE(m_file.write(longest, newBytes));
    EXPECT_TRUE(m_file.write(longest, oldBytes));
    EXPECT_EQ(bytesAt(longest), oldBytes);
}

TEST_P(AtomicFileOn, AStaleTemporaryIsRemovedAndALiveOneStays)
{
    put(path(), oldBytes);
    const QString stale = m_folder.filePath(u".0123456789abcdef.jotwell-tmp"_qs);
    const QString live = m_folder.filePath(u".fedcba9876543210.jotwell-tmp"_qs);
    put(stale, oldBytes);
    put(live, oldBytes);
    const int lock = ::open(qPrintable(live), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    EXPECT_TRUE(m_file.write(path(), newBytes));
    EXPECT_EQ(names(), (QStringList{u".fedcba9876543210.jotwell-tmp"_qs, u"note.md"_qs}));
    ::close(lock);
}

TEST(AtomicFile, AFileSystemWithoutSyncOfFoldersIsServed)
{
    class NoFolderSync : public FailingFileCalls {
    public:
        int fsync(int descriptor) override
        {
            struct stat status = {};
            ::fstat(descriptor, &status);
            if (!S_ISDIR(status.st_mode))
                return FailingFileCalls::fsync(descriptor);
            errno = EINVAL;
            return -1;
        }
    } calls;
    const QTemporaryDir folder;
    EXPECT_TRUE(AtomicFile(calls).write(folder.filePath(u"a.md"_qs), newBytes));
}

TEST(AtomicFile, AFileThatCannotBeNamedLaterIsNamedFromTheStart)
{
    FailingFileCalls calls;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.md"_qs);
    calls.failAt(4, ENOENT); // as where /proc isn't mounted
    EXPECT_TRUE(AtomicFile(calls).write(path, newBytes));
    EXPECT_EQ(calls.calls().at(4), u"linkNameless"_qs);
    EXPECT_EQ(calls.calls().count(u"rename"_qs), 1);
    const auto written = readFile(path);
    ASSERT_TRUE(written);
    EXPECT_EQ(*written, newBytes);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.md"_qs});
}

TEST(AtomicFile, WritesAndSyncsInTheSafeOrder)
{
    FailingFileCalls calls;
    const QTemporaryDir folder;
    ASSERT_TRUE(AtomicFile(calls).write(folder.filePath(u"a.md"_qs), newBytes));
    EXPECT_EQ(calls.calls().join(u' '),
              u"open openNameless write fsync linkNameless fsync close close"_qs);
}

} // namespace

} // namespace jotwell
