#include "Services/Index/Database/IndexDatabaseFixture.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSemaphore>

namespace jotwell {

namespace {

/// Keeps the only thread of a pool busy for its life, so that what is begun meanwhile waits.
class Congestion {
public:
    explicit Congestion(QThreadPool& executor)
    {
        executor.start([points = m_points] {
            points->reached.release();
            points->end.acquire();
        });
        m_points->reached.acquire();
    }
    ~Congestion() { m_points->end.release(); }
    Congestion(const Congestion&) = delete;
    Congestion& operator=(const Congestion&) = delete;

private:
    struct Points {
        QSemaphore reached;
        QSemaphore end;
    };
    const std::shared_ptr<Points> m_points = std::make_shared<Points>();
};

class IndexDatabaseLifetimeTest : public IndexDatabaseFixture {
protected:
    /// Notes `name` when the task has ended.
    template <typename T>
    void watch(QCoro::Task<T> task, const QString& name)
    {
        QCoro::connect(std::move(task), &m_context, [this, name] { m_ended.append(name); });
    }
    void settle()
    {
        m_executor.waitForDone();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] int rowCount() const
    {
        return rows("SELECT count(*) FROM content_index").value(0).toInt();
    }
    static FileMetadataPtr shared(const FileMetadata& record)
    {
        return std::make_shared<const FileMetadata>(record);
    }

    const QObject m_context;
    QStringList m_ended;
};

} // namespace

TEST_F(IndexDatabaseLifetimeTest, NothingIsWrittenAfterTheEnd)
{
    open();
    watch(m_database->saveIndexToDatabase(mapOf(notes(1000))), QStringLiteral("all"));
    settle();
    settle();
    m_database.reset();
    m_executor.waitForDone();
    const int written = rowCount();
    EXPECT_GT(written, 0);
    EXPECT_LT(written, 1000);
    for (int round = 0; round < 5; ++round)
        settle();
    EXPECT_EQ(rowCount(), written);
    EXPECT_EQ(m_ended, QStringList{QStringLiteral("all")});
    EXPECT_EQ(rows("PRAGMA integrity_check"), QStringList{QStringLiteral("ok")});
}

TEST_F(IndexDatabaseLifetimeTest, ItMayEndWhileARowIsBeingWritten)
{
    for (int round = 0; round < 20; ++round) {
        open();
        watch(m_database->saveIndexToDatabase(mapOf(notes(100))), QStringLiteral("all"));
        watch(m_database->searchContent(QStringLiteral("text")), QStringLiteral("search"));
        if (round % 2 == 0)
            QCoreApplication::processEvents();
        m_database.reset();
    }
    settle();
    settle();
    EXPECT_EQ(m_ended.size(), 40);
    EXPECT_EQ(m_log.errors(), QStringList());
}

TEST_F(IndexDatabaseLifetimeTest, WhatWaitsAtTheEndIsDropped)
{
    open();
    {
        const Congestion congestion(m_executor);
        watch(m_database->saveContentToDatabase(shared(note("A"))), QStringLiteral("save"));
        watch(m_database->saveIndexToDatabase(mapOf(notes(5))), QStringLiteral("all"));
        watch(m_database->removeFileFromDatabase("/vault/A.md"), QStringLiteral("remove"));
        watch(m_database->searchContent(QStringLiteral("a")), QStringLiteral("search"));
        watch(m_database->logSearchHistory(QStringLiteral("a"), 1, 1), QStringLiteral("history"));
        m_database.reset();
    }
    settle();
    EXPECT_EQ(rowCount(), 0);
    EXPECT_EQ(rows("SELECT count(*) FROM search_history"), QStringList{QStringLiteral("0")});
    m_ended.sort();
    EXPECT_EQ(m_ended, (QStringList{QStringLiteral("all"), QStringLiteral("history"),
                                    QStringLiteral("remove"), QStringLiteral("save"),
                                    QStringLiteral("search")}));
}

TEST_F(IndexDatabaseLifetimeTest, RowsThatWaitAtTheEndAreDropped)
{
    open();
    watch(m_database->saveIndexToDatabase(mapOf(notes(5))), QStringLiteral("all"));
    m_executor.waitForDone();
    ASSERT_EQ(rowCount(), 0) << "they come in the second slice";
    {
        const Congestion congestion(m_executor);
        QCoreApplication::processEvents();
        m_database.reset();
    }
    settle();
    EXPECT_EQ(rowCount(), 0);
    EXPECT_EQ(m_ended, QStringList{QStringLiteral("all")});
}

TEST_F(IndexDatabaseLifetimeTest, OneThatEndsBeforeItOpenedMakesNothing)
{
    {
        const Congestion congestion(m_executor);
        m_database = std::make_unique<IndexDatabase>(file(), m_executor, m_clock);
        m_database.reset();
    }
    settle();
    EXPECT_FALSE(QFileInfo::exists(file()));
}

TEST_F(IndexDatabaseLifetimeTest, OpeningDoesNotWait)
{
    const Congestion congestion(m_executor);
    m_database = std::make_unique<IndexDatabase>(file(), m_executor, m_clock);
    EXPECT_TRUE(m_database->hasHandle());
    EXPECT_FALSE(QFileInfo::exists(file()));
}

TEST_F(IndexDatabaseLifetimeTest, TheFirstOperationFindsTheTables)
{
    m_database = std::make_unique<IndexDatabase>(file(), m_executor, m_clock);
    save(note("A"));
    EXPECT_EQ(rowCount(), 1);
}

// It gets ahead even of the opening.
TEST_F(IndexDatabaseLifetimeTest, ASearchAtOnceFindsTheTables)
{
    {
        const Congestion congestion(m_executor);
        m_database = std::make_unique<IndexDatabase>(file(), m_executor, m_clock);
        watch(m_database->searchContent(QStringLiteral("a")), QStringLiteral("search"));
    }
    settle();
    EXPECT_EQ(m_ended, QStringList{QStringLiteral("search")});
    EXPECT_EQ(m_log.errors(), QStringList());
    EXPECT_EQ(m_log.infos().size(), 1);
}

TEST_F(IndexDatabaseLifetimeTest, ASearchGetsAheadOfSavesThatWait)
{
    open();
    {
        const Congestion congestion(m_executor);
        for (const char* name : {"A", "B", "C"})
            watch(m_database->saveContentToDatabase(shared(note(name))), QString::fromUtf8(name));
        watch(m_database->searchContent(QStringLiteral("a")), QStringLiteral("search"));
    }
    settle();
    EXPECT_EQ(m_ended, (QStringList{QStringLiteral("search"), QStringLiteral("A"),
                                    QStringLiteral("B"), QStringLiteral("C")}));
}

TEST_F(IndexDatabaseLifetimeTest, OthersGetInBetweenTheRowsOfASaveOfAll)
{
    open();
    watch(m_database->saveIndexToDatabase(mapOf(notes(1000))), QStringLiteral("all"));
    finished(m_database->searchContent(QStringLiteral("a")));
    save(note("Other"));
    EXPECT_EQ(m_ended, QStringList());
    // A look from outside would lock it out.
    m_executor.waitForDone();
    EXPECT_EQ(rows("SELECT count(*) FROM content_index WHERE title = 'Other'"),
              QStringList{QStringLiteral("1")});
    while (m_ended.isEmpty())
        settle();
    EXPECT_EQ(rowCount(), 1001);
}

// The saving has a map of its own, of the moment when it began.
TEST_F(IndexDatabaseLifetimeTest, WhatIsSavedIsTheIndexOfTheBeginning)
{
    open();
    NoteMap map = mapOf(notes(100));
    watch(m_database->saveIndexToDatabase(map), QStringLiteral("all"));
    map.insert(shared(note("Late")));
    map.remove("/vault/Note 1.md");
    map = {};
    while (m_ended.isEmpty())
        settle();
    EXPECT_EQ(rowCount(), 100);
}

} // namespace jotwell
