#include "Support/FileStatus.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

using Kind = FileStatus::Kind;

class FileStatusTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray pathOf(const char* name) const
    {
        return QFile::encodeName(m_folder.filePath(QString::fromLatin1(name)));
    }

    [[nodiscard]] QByteArray makeFile(const char* name, const QByteArray& bytes = {}) const
    {
        QFile file(QFile::decodeName(pathOf(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return pathOf(name);
    }

    [[nodiscard]] QByteArray makeLink(const char* name, const char* target) const
    {
        EXPECT_EQ(::symlink(target, pathOf(name).constData()), 0);
        return pathOf(name);
    }

    static void setModified(const QByteArray& path, const timespec& time)
    {
        const timespec both[2] = {time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.constData(), both, 0), 0);
    }

    QTemporaryDir m_folder;
};

TEST_F(FileStatusTest, TellsWhatTheFileSystemDoes)
{
    const QByteArray path = makeFile("a", "12345");
    setModified(path, {1'000'000'000, 500});
    struct stat expected = {};
    ASSERT_EQ(::stat(path.constData(), &expected), 0);
    const auto status = fileStatus(path);
    ASSERT_TRUE(status);
    EXPECT_EQ(status->kind, Kind::regular);
    EXPECT_EQ(status->size, 5);
    EXPECT_EQ(status->modificationTime, 1'000'000'000'000'000'500);
    EXPECT_EQ(status->modificationDate().time_since_epoch(),
              std::chrono::nanoseconds(1'000'000'000'000'000'500));
    EXPECT_EQ(status->changeTime,
              expected.st_ctim.tv_sec * 1'000'000'000 + expected.st_ctim.tv_nsec);
    EXPECT_EQ(status->inode, expected.st_ino);
    EXPECT_EQ(status->device, expected.st_dev);
}

TEST_F(FileStatusTest, TellsWhatKindOfEntryItIs)
{
    ASSERT_EQ(::mkfifo(pathOf("fifo").constData(), 0600), 0);
    EXPECT_EQ(fileStatus(makeFile("file"))->kind, Kind::regular);
    EXPECT_EQ(fileStatus(pathOf("."))->kind, Kind::folder);
    EXPECT_EQ(fileStatus(makeLink("link", "file"))->kind, Kind::link);
    EXPECT_EQ(fileStatus(makeLink("dangling", "none"))->kind, Kind::link);
    EXPECT_EQ(fileStatus(pathOf("fifo"))->kind, Kind::other);
    EXPECT_EQ(fileStatus("/dev/null")->kind, Kind::other);
}

TEST_F(FileStatusTest, LinksAreFollowedOnlyWhenAsked)
{
    const QByteArray file = makeFile("file", "12345");
    setModified(file, {1'000'000'000, 0});
    const QByteArray link = makeLink("link", "file");
    EXPECT_EQ(*fileStatus(link, Links::follow), *fileStatus(file));
    EXPECT_GT(fileStatus(link)->modificationTime, fileStatus(file)->modificationTime);
    EXPECT_EQ(fileStatus(makeLink("round", "round"), Links::follow).error().code, ELOOP);
}

TEST_F(FileStatusTest, NamesAreLookedUpInTheOpenFolder)
{
    const QByteArray file = makeFile("file");
    const int folder = ::open(pathOf(".").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    EXPECT_EQ(*fileStatusIn(folder, "file"), *fileStatus(file));
    EXPECT_EQ(fileStatusIn(folder, "none").error().code, ENOENT);
    ::close(folder);
}

TEST_F(FileStatusTest, FailuresSayWhy)
{
    EXPECT_EQ(fileStatus(pathOf("none")).error().code, ENOENT);
    EXPECT_EQ(fileStatus(makeFile("file") + "/below").error().code, ENOTDIR);
    EXPECT_EQ(fileStatus(pathOf("file") + QByteArray("\0x", 2)).error().code, EINVAL);
    EXPECT_EQ(fileStatus(QByteArray(5000, 'x')).error().code, ENAMETOOLONG);
}

TEST_F(FileStatusTest, YearsBeyondTheScaleAreItsEnds)
{
    const QByteArray path = makeFile("a");
    setModified(path, {10'000'000'000, 7}); // in the year 2286
    EXPECT_EQ(fileStatus(path)->modificationTime, std::numeric_limits<qint64>::max());
    setModified(path, {9'000'000'000, 7});
    EXPECT_EQ(fileStatus(path)->modificationTime, 9'000'000'000'000'000'007);
    setModified(path, {-1'000'000'000, 7});
    EXPECT_EQ(fileStatus(path)->modificationTime, -999'999'999'999'999'993);
}

} // namespace

} // namespace jotwell
