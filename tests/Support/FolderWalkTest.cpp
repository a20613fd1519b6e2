#include "Support/FolderWalk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

class FolderWalk : public testing::Test {
protected:
    void makeFile(const QString& name) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    void makeFolder(const QString& name) const { QDir(m_folder.path()).mkpath(name); }

    [[nodiscard]] QStringList walked(const QString& folder) const
    {
        QStringList found;
        walkFolder(folder, [&](const FolderEntry& entry) {
            EXPECT_TRUE(entry.path.endsWith(u'/' + entry.name));
            found.append(entry.path.mid(m_folder.path().size() + 1) +
                         (entry.isFolder ? u"/"_qs : QString()));
        });
        found.sort();
        return found;
    }

    QTemporaryDir m_folder;
};

TEST_F(FolderWalk, FindsEverythingBelow)
{
    makeFolder(u"a/b"_qs);
    makeFile(u"x.md"_qs);
    makeFile(u"a/y.md"_qs);
    makeFile(u"a/b/z"_qs);
    const QStringList expected{u"a/"_qs, u"a/b/"_qs, u"a/b/z"_qs, u"a/y.md"_qs, u"x.md"_qs};
    EXPECT_EQ(walked(m_folder.path()), expected);
    EXPECT_EQ(walked(m_folder.path() + u'/'), expected);
}

TEST_F(FolderWalk, HiddenNamesAndWhatLiesBelowThemDoNotCount)
{
    makeFolder(u".hidden/inner"_qs);
    makeFile(u".hidden/x.md"_qs);
    makeFile(u".y.md"_qs);
    EXPECT_EQ(walked(m_folder.path()), QStringList());
}

TEST_F(FolderWalk, LinksAreNotFollowed)
{
    makeFolder(u"a"_qs);
    ASSERT_EQ(::symlink(qPrintable(m_folder.path()), qPrintable(m_folder.filePath(u"a/loop"_qs))),
              0);
    EXPECT_EQ(walked(m_folder.path()), (QStringList{u"a/"_qs, u"a/loop"_qs}));
}

TEST_F(FolderWalk, NamesThatAreNoTextArePassedOver)
{
    makeFile(u"x.md"_qs);
    const QByteArray odd = m_folder.path().toUtf8() + "/\xff.md";
    FILE* file = ::fopen(odd.constData(), "w");
    ASSERT_NE(file, nullptr);
    ::fclose(file);
    EXPECT_EQ(walked(m_folder.path()), QStringList{u"x.md"_qs});
    ::unlink(odd.constData());
}

TEST_F(FolderWalk, AFolderThatIsNotThereIsEmpty)
{
    EXPECT_EQ(walked(m_folder.filePath(u"none"_qs)), QStringList());
}

TEST_F(FolderWalk, FoldersDeeperThanAPathCanNameEndTheWayDown)
{
    // Made from within, as no path reaches the bottom.
    const QByteArray start = QDir::currentPath().toLocal8Bit();
    ASSERT_EQ(::chdir(qPrintable(m_folder.path())), 0);
    makeFile(u"top.md"_qs);
    for (int level = 0; level < 3000; ++level) {
        ASSERT_EQ(::mkdir("dd", 0700), 0);
        ASSERT_EQ(::chdir("dd"), 0);
    }
    ASSERT_EQ(::chdir(start.constData()), 0);
    const QStringList found = walked(m_folder.path());
    EXPECT_TRUE(found.contains(u"top.md"_qs));
    EXPECT_GT(found.size(), 1000);
    EXPECT_EQ(::system(qPrintable(u"rm -rf '%1/dd'"_qs.arg(m_folder.path()))), 0);
}

TEST(PathBelow, HasOneSlashBeforeTheName)
{
    EXPECT_EQ(pathBelow(u"/vault"_qs, u"a b"_qs), u"/vault/a b"_qs);
    EXPECT_EQ(pathBelow(u"/vault/"_qs, u"a b"_qs), u"/vault/a b"_qs);
    EXPECT_EQ(pathBelow(u"/vault//"_qs, u"a"_qs), u"/vault/a"_qs);
    EXPECT_EQ(pathBelow(u"/"_qs, u"a"_qs), u"/a"_qs);
}

TEST_F(FolderWalk, ModificationTimeIsThatOfTheLinkItself)
{
    makeFile(u"old.md"_qs);
    const timespec old[2] = {{1'000'000'000, 500}, {1'000'000'000, 500}};
    ASSERT_EQ(::utimensat(AT_FDCWD, qPrintable(m_folder.filePath(u"old.md"_qs)), old, 0), 0);
    ASSERT_EQ(::symlink("old.md", qPrintable(m_folder.filePath(u"link.md"_qs))), 0);
    const auto ofFile = modificationTime(m_folder.filePath(u"old.md"_qs));
    const auto ofLink = modificationTime(m_folder.filePath(u"link.md"_qs));
    ASSERT_TRUE(ofFile && ofLink);
    EXPECT_EQ(ofFile->time_since_epoch(),
              std::chrono::seconds(1'000'000'000) + std::chrono::nanoseconds(500));
    EXPECT_GT(*ofLink, *ofFile);
    EXPECT_FALSE(modificationTime(m_folder.filePath(u"none"_qs)));
}

} // namespace

} // namespace jotwell
