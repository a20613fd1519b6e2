#include "Services/Index/Database/DeferredSyncVfs.h"

#include "QtPrinters.h"
#include "Services/Index/Database/SyncCalls.h"
#include "Services/ScratchFolder.h"
#include "Support/Database.h"

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
const char* const usualVfs = nullptr;

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(u' ');
}

class DeferredSyncVfsTest : public testing::Test {
protected:
    DeferredSyncVfsTest()
    {
        m_folder.makeFolder(QStringLiteral("in"));
        open(m_database, "a.db");
        execute("CREATE TABLE t (x)");
        static_cast<void>(m_syncs.taken());
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.pathOf(QStringLiteral("in/") + QString::fromUtf8(name));
    }
    void open(Database& database, const char* name) const
    {
        ASSERT_EQ(database.open(path(name), flags, DeferredSyncVfs::name()), SQLITE_OK);
    }
    void execute(const char* script)
    {
        ASSERT_EQ(m_database.execute(script), SQLITE_OK) << m_database.errorMessage().toStdString();
    }
    [[nodiscard]] QByteArray only(const char* sql) const
    {
        Statement query(m_database.handle(), sql);
        return query.step() == SQLITE_ROW ? query.text(0).toByteArray() : "(no row)";
    }

    ScratchFolder m_folder;
    SyncCalls m_syncs;
    Database m_database;
};

} // namespace

TEST_F(DeferredSyncVfsTest, WithoutAHoldItSyncsAsSQLiteDoes)
{
    Database usual;
    ASSERT_EQ(usual.open(path("a.db"), flags, usualVfs), SQLITE_OK);
    usual.execute("INSERT INTO t VALUES (1)");
    const QStringList asUsual = m_syncs.taken();
    EXPECT_GT(asUsual.size(), 1);
    execute("INSERT INTO t VALUES (1)");
    EXPECT_EQ(m_syncs.taken(), asUsual);
}

TEST_F(DeferredSyncVfsTest, WhileHeldNothingIsSynced)
{
    const DeferredSyncVfs::Hold hold(m_database.handle());
    for (int row = 0; row < 10; ++row)
        execute("INSERT INTO t VALUES (1)");
    EXPECT_EQ(m_syncs.taken(), QStringList());
    EXPECT_EQ(only("SELECT count(*) FROM t"), "10");
}

TEST_F(DeferredSyncVfsTest, WhatWasHeldBackIsDoneOnce)
{
    {
        const DeferredSyncVfs::Hold hold(m_database.handle());
        execute("INSERT INTO t VALUES (1)");
        execute("INSERT INTO t VALUES (2)");
    }
    EXPECT_EQ(m_syncs.taken(), QStringList());
    EXPECT_EQ(DeferredSyncVfs::syncHeldBack(m_database.handle()), SQLITE_OK);
    EXPECT_EQ(m_syncs.taken(), words("a.db in"));
    EXPECT_EQ(DeferredSyncVfs::syncHeldBack(m_database.handle()), SQLITE_OK);
    EXPECT_EQ(m_syncs.taken(), QStringList());
}

TEST_F(DeferredSyncVfsTest, NothingIsDueWithoutAWrite)
{
    {
        const DeferredSyncVfs::Hold hold(m_database.handle());
        EXPECT_EQ(only("SELECT count(*) FROM t"), "0");
    }
    EXPECT_EQ(DeferredSyncVfs::syncHeldBack(m_database.handle()), SQLITE_OK);
    EXPECT_EQ(m_syncs.taken(), QStringList());
}

TEST_F(DeferredSyncVfsTest, AfterAHoldItSyncsAsBefore)
{
    execute("INSERT INTO t VALUES (1)");
    const QStringList before = m_syncs.taken();
    {
        const DeferredSyncVfs::Hold hold(m_database.handle());
        execute("INSERT INTO t VALUES (2)");
    }
    execute("INSERT INTO t VALUES (3)");
    EXPECT_EQ(m_syncs.taken(), before);
}

TEST_F(DeferredSyncVfsTest, OneDatabaseIsHeldWithoutAnother)
{
    Database other;
    open(other, "b.db");
    const DeferredSyncVfs::Hold hold(m_database.handle());
    execute("INSERT INTO t VALUES (1)");
    EXPECT_EQ(m_syncs.taken(), QStringList());
    other.execute("CREATE TABLE t (x)");
    EXPECT_TRUE(m_syncs.taken().contains(QStringLiteral("b.db")));
    EXPECT_EQ(DeferredSyncVfs::syncHeldBack(other.handle()), SQLITE_OK);
    EXPECT_EQ(m_syncs.taken(), QStringList());
}

TEST_F(DeferredSyncVfsTest, AFailedSyncIsTold)
{
    for (const auto& [failing, result] :
         {std::pair{"a.db", SQLITE_IOERR_FSYNC}, std::pair{"in", SQLITE_IOERR_DIR_FSYNC}}) {
        {
            const DeferredSyncVfs::Hold hold(m_database.handle());
            execute("INSERT INTO t VALUES (1)");
        }
        m_syncs.fail(QString::fromUtf8(failing));
        EXPECT_EQ(DeferredSyncVfs::syncHeldBack(m_database.handle()), result);
        m_syncs.fail({});
    }
}

TEST_F(DeferredSyncVfsTest, WhatIsNotOpenIsLeftAlone)
{
    Database unopened;
    Database failed;
    failed.open(m_folder.path(), flags, DeferredSyncVfs::name());
    Database inMemory;
    open(inMemory, ":memory:");
    for (const Database* each : {&unopened, &failed}) {
        const DeferredSyncVfs::Hold hold(each->handle());
        EXPECT_EQ(DeferredSyncVfs::syncHeldBack(each->handle()), SQLITE_OK);
    }
    EXPECT_EQ(m_syncs.taken(), QStringList());
}

TEST_F(DeferredSyncVfsTest, TheFileIsTheSameAsTheUsualOne)
{
    const char* const script = "CREATE TABLE u (a PRIMARY KEY, b);"
                               "INSERT INTO u VALUES (1, zeroblob(10000)), (2, 'b');"
                               "DELETE FROM u WHERE a = 1; INSERT INTO u VALUES (3, 'c');";
    Database usual;
    ASSERT_EQ(usual.open(path("usual.db"), flags, usualVfs), SQLITE_OK);
    usual.execute(script);
    Database held;
    open(held, "held.db");
    {
        const DeferredSyncVfs::Hold hold(held.handle());
        held.execute(script);
    }
    EXPECT_TRUE(m_folder.bytesOf(QStringLiteral("in/usual.db")) ==
                m_folder.bytesOf(QStringLiteral("in/held.db")));
    EXPECT_EQ(m_folder.names(), words("in"));
}

TEST_F(DeferredSyncVfsTest, AWriteAheadLogIsHeldToo)
{
    ASSERT_EQ(only("PRAGMA journal_mode = WAL"), "wal");
    ASSERT_EQ(m_database.execute("PRAGMA synchronous = FULL; INSERT INTO t VALUES (1)"), SQLITE_OK);
    EXPECT_TRUE(m_syncs.taken().contains(QStringLiteral("a.db-wal")));
    {
        const DeferredSyncVfs::Hold hold(m_database.handle());
        execute("INSERT INTO t VALUES (2)");
        EXPECT_EQ(only("PRAGMA wal_checkpoint"), "0");
    }
    EXPECT_EQ(m_syncs.taken(), QStringList());
    Database other;
    other.open(path("a.db"), flags, usualVfs);
    EXPECT_EQ(Statement(other.handle(), "SELECT x FROM t").step(), SQLITE_ROW);
}

TEST_F(DeferredSyncVfsTest, FilesAreMappedAndTemporaryOnesMade)
{
    EXPECT_EQ(only("PRAGMA mmap_size = 1000000"), "1000000");
    execute("INSERT INTO t VALUES (zeroblob(100000))");
    EXPECT_EQ(only("SELECT length(x) FROM t"), "100000");
    execute("PRAGMA temp_store = FILE; PRAGMA temp.cache_size = 5;"
            "CREATE TEMP TABLE u AS SELECT randomblob(1000) FROM "
            "(WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 500) "
            "SELECT i FROM n)");
    EXPECT_EQ(only("SELECT count(*) FROM u"), "500");
}

TEST_F(DeferredSyncVfsTest, LocksAreThoseOfEveryProgram)
{
    execute("BEGIN EXCLUSIVE");
    Database other;
    other.open(path("a.db"), flags, usualVfs);
    EXPECT_EQ(other.execute("INSERT INTO t VALUES (1)"), SQLITE_BUSY);
}

TEST_F(DeferredSyncVfsTest, TheUsualVfsStaysTheUsualOne)
{
    EXPECT_STRNE(sqlite3_vfs_find(nullptr)->zName, DeferredSyncVfs::name());
    EXPECT_NE(sqlite3_vfs_find(DeferredSyncVfs::name()), nullptr);
}

} // namespace jotwell
