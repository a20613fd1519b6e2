#include "Support/Database.h"

#include "QtPrinters.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

class DatabaseTest : public testing::Test {
protected:
    DatabaseTest()
    {
        m_database.open(m_file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        m_database.execute("CREATE TABLE t (a, b, c)");
    }

    [[nodiscard]] Statement statement(const char* sql) const { return {m_database.handle(), sql}; }
    [[nodiscard]] QByteArray only(const char* sql) const
    {
        Statement query = statement(sql);
        return query.step() == SQLITE_ROW ? query.text(0).toByteArray() : "(no row)";
    }

    QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath(QStringLiteral("größe.db"));
    Database m_database;
};

} // namespace

TEST_F(DatabaseTest, AStatementThatCannotBeMadeTakesEverythingAndDoesNothing)
{
    Statement bad = statement("SELECT no_such_column FROM t");
    EXPECT_FALSE(bad.isValid());
    EXPECT_EQ(bad.result(), SQLITE_ERROR);
    EXPECT_EQ(m_database.errorMessage(), QStringLiteral("no such column: no_such_column"));
    bad.bindText(1, "text");
    bad.bindInt(2, 1);
    bad.bindInt64(3, 1);
    bad.bindDouble(4, 1);
    EXPECT_EQ(bad.step(), SQLITE_MISUSE);
    bad.reset();
    EXPECT_EQ(bad.columnCount(), 0);
    EXPECT_TRUE(bad.isNull(0));
    EXPECT_TRUE(bad.text(0).isNull());
    EXPECT_EQ(bad.integer(0), 0);
    EXPECT_EQ(bad.real(0), 0);
}

TEST_F(DatabaseTest, ValuesComeBackAsTheyWereBound)
{
    Statement insert = statement("INSERT INTO t VALUES (?, ?, ?)");
    insert.bindText(1, "größe");
    insert.bindInt64(2, qint64(-1) << 40);
    insert.bindDouble(3, 0.5);
    EXPECT_EQ(insert.step(), SQLITE_DONE);
    Statement query = statement("SELECT a, b, c FROM t");
    ASSERT_EQ(query.step(), SQLITE_ROW);
    EXPECT_EQ(query.columnCount(), 3);
    EXPECT_EQ(query.text(0).toByteArray(), "größe");
    EXPECT_EQ(query.integer(1), qint64(-1) << 40);
    EXPECT_EQ(query.real(2), 0.5);
    EXPECT_EQ(query.step(), SQLITE_DONE);
}

TEST_F(DatabaseTest, ATextEndsAtItsFirstNulOrWithItsBytes)
{
    const QByteArray bytes("one\0two", 7);
    for (const QByteArrayView text : {QByteArrayView(bytes), QByteArrayView(bytes).first(2)}) {
        Statement insert = statement("INSERT INTO t (a) VALUES (?)");
        insert.bindText(1, text);
        insert.step();
    }
    EXPECT_EQ(only("SELECT group_concat(a) FROM t"), "one,on");
}

TEST_F(DatabaseTest, NoBytesAreAnEmptyTextAndNotNull)
{
    Statement insert = statement("INSERT INTO t (a, b) VALUES (?, ?)");
    insert.bindText(1, QByteArrayView());
    insert.bindText(2, QByteArray());
    insert.step();
    EXPECT_EQ(only("SELECT typeof(a) || typeof(b) FROM t"), "texttext");
}

TEST_F(DatabaseTest, NullIsToldFromAnEmptyText)
{
    Statement query = statement("SELECT NULL, ''");
    ASSERT_EQ(query.step(), SQLITE_ROW);
    EXPECT_TRUE(query.isNull(0));
    EXPECT_TRUE(query.text(0).isNull());
    EXPECT_FALSE(query.isNull(1));
    EXPECT_TRUE(query.text(1).isEmpty());
}

TEST_F(DatabaseTest, AStatementRunsAgainWithoutItsOldValues)
{
    Statement insert = statement("INSERT INTO t (a, b) VALUES (?, ?)");
    insert.bindInt(1, 1);
    insert.bindInt(2, 2);
    insert.step();
    insert.reset();
    insert.bindInt(1, 3);
    EXPECT_EQ(insert.step(), SQLITE_DONE);
    EXPECT_EQ(only("SELECT group_concat(a || ':' || ifnull(b, 'NULL')) FROM t"), "1:2,3:NULL");
}

TEST_F(DatabaseTest, AFailedOpenLeavesAHandleThatTakesNothing)
{
    Database database;
    EXPECT_EQ(database.open(m_folder.path(), SQLITE_OPEN_READWRITE, nullptr), SQLITE_CANTOPEN);
    EXPECT_NE(database.handle(), nullptr);
    EXPECT_EQ(database.errorMessage(), QStringLiteral("unable to open database file"));
    EXPECT_EQ(database.execute("CREATE TABLE t (a)"), SQLITE_MISUSE);
    EXPECT_FALSE(Statement(database.handle(), "SELECT 1").isValid());
}

TEST_F(DatabaseTest, WithoutAHandleNothingIsDone)
{
    Database database;
    EXPECT_EQ(database.handle(), nullptr);
    EXPECT_EQ(database.execute("CREATE TABLE t (a)"), SQLITE_MISUSE);
    EXPECT_FALSE(Statement(database.handle(), "SELECT 1").isValid());
}

TEST_F(DatabaseTest, ClosingLetsGoOfTheFile)
{
    m_database.execute("BEGIN EXCLUSIVE");
    Database other;
    other.open(m_file, SQLITE_OPEN_READWRITE, nullptr);
    EXPECT_EQ(other.execute("CREATE TABLE u (a)"), SQLITE_BUSY);
    m_database.close();
    EXPECT_EQ(m_database.handle(), nullptr);
    EXPECT_EQ(other.execute("CREATE TABLE u (a)"), SQLITE_OK);
}

TEST_F(DatabaseTest, OpeningClosesWhatWasOpen)
{
    m_database.execute("BEGIN EXCLUSIVE");
    m_database.open(m_folder.filePath(QStringLiteral("other.db")),
                    SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    Database first;
    first.open(m_file, SQLITE_OPEN_READWRITE, nullptr);
    EXPECT_EQ(first.execute("CREATE TABLE u (a)"), SQLITE_OK);
}

} // namespace jotwell
