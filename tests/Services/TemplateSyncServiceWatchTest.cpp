#include "Services/TemplateSyncService.h"

#include "Services/TemplateSyncFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <unistd.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(WatchedTemplates, FollowNewFiles)
{
    m_folder.put(u"c.md"_qs);
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
    touch();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(WatchedTemplates, FollowVanishedFiles)
{
    m_folder.remove(u"a.md"_qs);
    touch();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"b"_qs));
}

TEST_F(WatchedTemplates, FollowReplacedFiles)
{
    m_folder.put(u"a.md"_qs, "other");
    touch();
    settle();
    EXPECT_EQ(named(u"a"_qs).content, u"other"_qs);
}

TEST_F(WatchedTemplates, EmptyOutWithTheFolder)
{
    m_folder.remove(u"a.md"_qs);
    m_folder.remove(u"b.md"_qs);
    ASSERT_EQ(::rmdir(m_folder.path().toUtf8().constData()), 0);
    touch();
    settle();
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(WatchedTemplates, EmptyOutOnAnEventOnceThePathIsEmptied)
{
    m_settings.setTemplatesFolderPath(std::nullopt);
    m_service->startMonitoring();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(m_folder.path()));
    touch();
    settle();
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(WatchedTemplates, EmptyOutOnALoadOnceThePathIsEmptied)
{
    m_settings.setTemplatesFolderPath(QString());
    m_service->loadSyncedTemplates();
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(WatchedTemplates, GoOverToAnotherFolder)
{
    const ScratchFolder other;
    other.put(u"c.md"_qs);
    m_settings.setTemplatesFolderPath(other.path());
    m_service->startMonitoring();
    EXPECT_THAT(names(), ElementsAre(u"c"_qs));
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(other.path()));
    other.put(u"d.md"_qs);
    m_edge.folders.touch(other.path());
    settle();
    EXPECT_THAT(names(), ElementsAre(u"c"_qs, u"d"_qs));
}

TEST_F(WatchedTemplates, AreWatchedOnceHoweverOftenItStarts)
{
    m_service->startMonitoring();
    m_service->startMonitoring();
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(m_folder.path()));
}

TEST_F(WatchedTemplates, StartMonitoringLoadsAnew)
{
    m_folder.put(u"c.md"_qs);
    m_service->startMonitoring();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(WatchedTemplates, StopMonitoringEndsTheWatchAndKeepsTheList)
{
    m_service->stopMonitoring();
    EXPECT_THAT(m_edge.folders.watched(), IsEmpty());
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
    m_service->startMonitoring();
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(m_folder.path()));
}

TEST_F(WatchedTemplates, StandAsTheFolderDoesBehindAStormOfEvents)
{
    for (int each = 0; each < 300; ++each) {
        const QString name = u"%1.md"_qs.arg(each % 10);
        if (QFile::exists(m_folder.pathOf(name)))
            m_folder.remove(name);
        else
            m_folder.put(name);
        touch();
    }
    m_folder.put(u"last.md"_qs);
    touch();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"last"_qs));
}

TEST_F(WatchedTemplates, EventDuringAReadingIsNotLost)
{
    touch();
    m_edge.background.waitForDone(); // read, but not yet told
    m_folder.put(u"c.md"_qs);
    touch();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(WatchedTemplates, LateReadingDoesNotUndoALoad)
{
    touch();
    m_edge.background.waitForDone();
    m_folder.put(u"c.md"_qs);
    m_service->loadSyncedTemplates();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(WatchedTemplates, EventBehindALateReadingIsRead)
{
    touch();
    m_edge.background.waitForDone();
    m_service->loadSyncedTemplates();
    settle();
    m_folder.put(u"c.md"_qs);
    touch();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(WatchedTemplates, LateReadingDoesNotUndoASave)
{
    touch();
    m_edge.background.waitForDone();
    m_folder.put(u"c.md"_qs);
    ObsidianTemplate edited = named(u"a"_qs);
    edited.content = u"edited"_qs;
    ASSERT_TRUE(m_service->saveTemplate(edited));
    settle();
    EXPECT_EQ(named(u"a"_qs).content, u"edited"_qs);
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(WatchedTemplates, TellOfTheirChangesAndOfNothingElse)
{
    int changes = 0;
    QObject::connect(m_service.get(), &TemplateSyncService::syncedTemplatesChanged, m_service.get(),
                     [&] { ++changes; });
    touch();
    settle();
    m_service->loadSyncedTemplates();
    EXPECT_EQ(changes, 0);
    m_folder.put(u"c.md"_qs);
    touch();
    settle();
    EXPECT_EQ(changes, 1);
    m_folder.put(u"d.md"_qs);
    m_service->loadSyncedTemplates();
    EXPECT_EQ(changes, 2);
}

TEST_F(WatchedTemplates, ReadingThatOutlivesTheServiceIsDropped)
{
    touch();
    m_service.reset();
    EXPECT_THAT(m_edge.folders.watched(), IsEmpty());
    settle();
}

TEST_F(WatchedTemplates, MayBeReadFromAnyThread)
{
    std::atomic<bool> isDone = false;
    std::atomic<int> halves = 0;
    std::thread reader([&] {
        while (!isDone) {
            const qsizetype size = m_service->syncedTemplates().size();
            halves += size != 0 && size != 2;
        }
    });
    for (int each = 0; each < 200; ++each) {
        m_settings.setTemplatesFolderPath(each % 2 ? m_folder.path() : QString());
        m_service->loadSyncedTemplates();
    }
    isDone = true;
    reader.join();
    EXPECT_EQ(halves, 0);
}

} // namespace

} // namespace jotwell
