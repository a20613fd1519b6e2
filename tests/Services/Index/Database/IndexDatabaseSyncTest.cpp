#include "Services/Index/Database/IndexDatabaseFixture.h"
#include "Services/Index/Database/SyncCalls.h"

#include <QCoreApplication>

namespace jotwell {

namespace {

class IndexDatabaseSyncTest : public IndexDatabaseFixture {
protected:
    SyncCalls m_syncs;
};

const QStringList fileAndFolder{QStringLiteral("TagIndex.db"), QStringLiteral("com.jotwell")};

} // namespace

TEST_F(IndexDatabaseSyncTest, TheTablesAreSyncedOnceAndNotAgain)
{
    open();
    EXPECT_EQ(m_syncs.taken(), fileAndFolder);
    close();
    open();
    close();
    EXPECT_EQ(m_syncs.taken(), QStringList());
}

TEST_F(IndexDatabaseSyncTest, ASaveOfAllIsSyncedOnceAtItsEnd)
{
    open();
    static_cast<void>(m_syncs.taken());
    saveAll(notes(100));
    EXPECT_EQ(m_syncs.taken(), fileAndFolder);
}

TEST_F(IndexDatabaseSyncTest, ASingleSaveIsSyncedAsSQLiteDoes)
{
    open();
    static_cast<void>(m_syncs.taken());
    save(note("A"));
    const QStringList single = m_syncs.taken();
    EXPECT_TRUE(single.contains(QStringLiteral("TagIndex.db-journal")));
    EXPECT_EQ(single.last(), QStringLiteral("TagIndex.db"));
}

TEST_F(IndexDatabaseSyncTest, SoIsASingleSaveInTheMiddleOfASaveOfAll)
{
    open();
    auto saving = m_database->saveIndexToDatabase(mapOf(notes(500)));
    m_executor.waitForDone();
    static_cast<void>(m_syncs.taken());
    save(note("A"));
    EXPECT_TRUE(m_syncs.taken().contains(QStringLiteral("TagIndex.db-journal")));
    finished(std::move(saving));
}

TEST_F(IndexDatabaseSyncTest, AnUnfinishedSaveIsSyncedAtTheEnd)
{
    open();
    const QObject context;
    QCoro::connect(m_database->saveIndexToDatabase(mapOf(notes(500))), &context, [] {});
    while (rows("SELECT count(*) FROM content_index") == QStringList{QStringLiteral("0")}) {
        QCoreApplication::processEvents();
        m_executor.waitForDone();
    }
    static_cast<void>(m_syncs.taken());
    close();
    EXPECT_EQ(m_syncs.taken(), fileAndFolder);
    QCoreApplication::processEvents();
}

TEST_F(IndexDatabaseSyncTest, AFailedSyncIsLogged)
{
    open();
    m_syncs.fail(QStringLiteral("TagIndex.db"));
    saveAll(notes(10));
    EXPECT_EQ(m_log.errors(),
              QStringList{QStringLiteral("Failed to sync database: disk I/O error")});
    EXPECT_EQ(rows("SELECT count(*) FROM content_index"), QStringList{QStringLiteral("10")});
}

} // namespace jotwell
