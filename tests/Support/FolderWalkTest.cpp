#include "Support/FolderWalk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

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

    [[nodiscard]] QStringList walked(const QString& folder)
    {
        QStringList found;
        const auto visit = [&](const FolderEntry& entry) {
            EXPECT_TRUE(entry.path().endsWith(QByteArray("/" + entry.name().toByteArray())));
            found.append(QString::fromUtf8(entry.path()).mid(m_folder.path().size() + 1) +
                         (entry.isFolder() ? u"/"_qs : QString()));
        };
        m_result = walkFolder(folder, visit);
        found.sort();
        return found;
    }

    QTemporaryDir m_folder;
    Result<void, SystemError> m_result; ///< of the last walk
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

TEST_F(FolderWalk, FailsOnlyForTheFolderItself)
{
    makeFile(u"file"_qs);
    makeFolder(u"a"_qs);
    EXPECT_EQ(walked(m_folder.path()).size(), 2);
    EXPECT_TRUE(m_result);
    EXPECT_EQ(walked(m_folder.filePath(u"none"_qs)), QStringList());
    EXPECT_EQ(m_result.error().code, ENOENT);
    EXPECT_EQ(walked(m_folder.filePath(u"file"_qs)), QStringList());
    EXPECT_EQ(m_result.error().code, ENOTDIR);
    EXPECT_EQ(walked(QString()), QStringList());
    EXPECT_EQ(m_result.error().code, ENOENT);
    EXPECT_EQ(walked(m_folder.path() + QChar(0) + u"x"_qs), QStringList());
    EXPECT_EQ(m_result.error().code, EINVAL);
}

TEST_F(FolderWalk, ALinkToAFolderCanBeWalkedItself)
{
    makeFolder(u"a"_qs);
    makeFile(u"a/x"_qs);
    const QString link = m_folder.filePath(u"link"_qs);
    ASSERT_EQ(::symlink("a", qPrintable(link)), 0);
    EXPECT_EQ(walked(link), QStringList{u"link/x"_qs});
    EXPECT_EQ(walked(link + u'/'), QStringList{u"link/x"_qs});
}

TEST_F(FolderWalk, AFolderThatHasBecomeALinkIsNotEntered)
{
    const QTemporaryDir elsewhere;
    QFile inside(elsewhere.filePath(u"inside"_qs));
    ASSERT_TRUE(inside.open(QIODevice::WriteOnly));
    makeFolder(u"a"_qs);
    QStringList found;
    const auto visit = [&](const FolderEntry& entry) {
        found.append(QString::fromUtf8(entry.name()));
        if (entry.isFolder()) {
            ASSERT_EQ(::rmdir(entry.path().constData()), 0);
            ASSERT_EQ(::symlink(qPrintable(elsewhere.path()), entry.path().constData()), 0);
        }
    };
    EXPECT_TRUE(walkFolder(m_folder.path(), visit));
    EXPECT_EQ(found, QStringList{u"a"_qs});
}

TEST_F(FolderWalk, APathThatIsKeptStaysAsItWas)
{
    makeFile(u"first"_qs);
    makeFile(u"second"_qs);
    QList<QByteArray> kept;
    const auto visit = [&](const FolderEntry& entry) { kept.append(entry.path()); };
    ASSERT_TRUE(walkFolder(m_folder.path(), visit));
    ASSERT_EQ(kept.size(), 2);
    for (const QByteArray& path : kept)
        EXPECT_TRUE(QFile::exists(QString::fromUtf8(path))) << path.constData();
}

TEST_F(FolderWalk, TellsTheStatusOfAnEntryItself)
{
    makeFile(u"old"_qs);
    ASSERT_EQ(::symlink("old", qPrintable(m_folder.filePath(u"link"_qs))), 0);
    const auto visit = [](const FolderEntry& entry) {
        const auto status = entry.status();
        const auto expected = fileStatus(entry.path());
        ASSERT_TRUE(status && expected);
        EXPECT_EQ(*status, *expected) << entry.path().constData();
    };
    ASSERT_TRUE(walkFolder(m_folder.path(), visit));
}

TEST_F(FolderWalk, SeveralThreadsShareTheFolders)
{
    QStringList expected;
    for (int each = 0; each < 60; ++each) {
        const QString folder = u"%1/%2"_qs.arg(each % 7).arg(each);
        makeFolder(folder);
        makeFile(folder + u"/x.md"_qs);
        expected += {folder + u'/', folder + u"/x.md"_qs};
    }
    for (int each = 0; each < 7; ++each)
        expected.append(u"%1/"_qs.arg(each));
    expected.sort();
    for (size_t threads = 1; threads <= 5; ++threads) {
        std::vector<QStringList> parts(threads);
        std::vector<FolderVisit> visits;
        for (QStringList& part : parts) {
            visits.emplace_back([&](const FolderEntry& entry) {
                part.append(QString::fromUtf8(entry.path()).mid(m_folder.path().size() + 1) +
                            (entry.isFolder() ? u"/"_qs : QString()));
            });
        }
        ASSERT_TRUE(walkFolder(m_folder.path(), visits));
        QStringList found;
        for (const QStringList& part : parts)
            found += part;
        found.sort();
        EXPECT_EQ(found, expected) << threads << " threads";
    }
}

// Each thread stays in its first folder until the others have one too.
TEST_F(FolderWalk, SeveralThreadsWorkAtTheSameTime)
{
    constexpr int threads = 3;
    for (int each = 0; each < threads; ++each) {
        makeFolder(u"%1"_qs.arg(each));
        makeFile(u"%1/x"_qs.arg(each));
    }
    std::mutex mutex;
    std::condition_variable changed;
    std::set<std::thread::id> seen;
    const FolderVisit visit = [&](const FolderEntry& entry) {
        if (entry.isFolder()) {
            // By now the others wait for the first folder.
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            return;
        }
        std::unique_lock lock(mutex);
        seen.insert(std::this_thread::get_id());
        changed.notify_all();
        changed.wait_for(lock, std::chrono::seconds(30), [&] { return seen.size() == threads; });
    };
    ASSERT_TRUE(walkFolder(m_folder.path(), std::vector<FolderVisit>(threads, visit)));
    EXPECT_EQ(seen.size(), size_t(threads));
    EXPECT_TRUE(seen.contains(std::this_thread::get_id()));
}

TEST_F(FolderWalk, SeveralThreadsFailTogether)
{
    const std::vector<FolderVisit> visits(3, [](const FolderEntry&) { FAIL(); });
    EXPECT_EQ(walkFolder(m_folder.filePath(u"none"_qs), visits).error().code, ENOENT);
}

TEST_F(FolderWalk, KnowsNotesByTheirExtension)
{
    const QStringList notes{u"a.md"_qs, u"b..md"_qs, u"c.x.md"_qs, u"d.md"_qs};
    for (const QString& name : notes)
        makeFile(name);
    for (const QString& name : {u"A.MD"_qs, u"B.Md"_qs, u"c.md~"_qs, u"d.markdown"_qs, u"md"_qs,
                                u"e.md.txt"_qs, u"fmd"_qs})
        makeFile(name);
    QStringList found;
    const auto visit = [&](const FolderEntry& entry) {
        if (entry.isNote())
            found.append(QString::fromUtf8(entry.name()));
    };
    ASSERT_TRUE(walkFolder(m_folder.path(), visit));
    found.sort();
    EXPECT_EQ(found, notes);
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

} // namespace

} // namespace jotwell
