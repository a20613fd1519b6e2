#pragma once

#include "Fakes/FakeClock.h"
#include "Fakes/TaskRunner.h"
#include "QtPrinters.h"
#include "Services/Index/Database/IndexDatabase.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"
#include "Support/Database.h"

#include <QThreadPool>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <vector>

namespace jotwell {

/// A database file in a folder of its own, and a look at it from outside.
class IndexDatabaseFixture : public testing::Test {
protected:
    IndexDatabaseFixture() { m_executor.setMaxThreadCount(1); }

    [[nodiscard]] QString file() const { return m_folder.pathOf(m_name); }

    /// A start of the program: comes back when the database is open.
    IndexDatabase& open()
    {
        m_database = std::make_unique<IndexDatabase>(file(), m_executor, m_clock);
        m_executor.waitForDone();
        return *m_database;
    }
    /// Its end: comes back when the database is closed.
    void close()
    {
        m_database.reset();
        m_executor.waitForDone();
    }

    void save(const FileMetadata& record) { save(*m_database, record); }
    static void save(IndexDatabase& database, const FileMetadata& record)
    {
        finished(database.saveContentToDatabase(std::make_shared<const FileMetadata>(record)));
    }
    void saveAll(const std::vector<FileMetadata>& records)
    {
        finished(m_database->saveIndexToDatabase(mapOf(records)));
    }
    IndexSearchResults search(const QString& ftsQuery)
    {
        return finished(m_database->searchContent(ftsQuery));
    }

    static NoteMap mapOf(const std::vector<FileMetadata>& records)
    {
        NoteMap map;
        for (const FileMetadata& record : records)
            map.insert(std::make_shared<const FileMetadata>(record));
        return map;
    }

    static FileMetadata note(const QByteArray& name, const QByteArray& text = "Some text.")
    {
        FileMetadata record;
        record.path = "/vault/" + name + ".md";
        record.modificationDate = FakeClock::TimePoint(std::chrono::seconds(1000));
        record.indexedDate = FakeClock::TimePoint(std::chrono::seconds(2000));
        record.fileSize = text.size();
        record.fullContent = text;
        record.cleanedContent = text;
        return record;
    }
    static std::vector<FileMetadata> notes(int count)
    {
        std::vector<FileMetadata> records;
        records.reserve(static_cast<std::size_t>(count));
        for (int number = 0; number < count; ++number)
            records.push_back(note("Note " + QByteArray::number(number),
                                   "The text of note " + QByteArray::number(number)));
        return records;
    }

    /// The rows of a query over a connection of the test's own, columns parted by "|".
    [[nodiscard]] QStringList rows(const char* sql) const
    {
        Database database;
        database.open(file(), SQLITE_OPEN_READWRITE, nullptr);
        Statement statement(database.handle(), sql);
        QStringList found;
        int result = statement.isValid() ? statement.step() : statement.result();
        for (; result == SQLITE_ROW; result = statement.step())
            found.append(rowOf(statement));
        if (result != SQLITE_DONE)
            found.append(QStringLiteral("error: ") + database.errorMessage());
        return found;
    }

    const QString m_name = QStringLiteral("com.jotwell/TagIndex.db");
    ScratchFolder m_folder;
    LogCapture m_log;
    FakeClock m_clock;
    QThreadPool m_executor;
    std::unique_ptr<IndexDatabase> m_database;

private:
    static QString rowOf(const Statement& statement)
    {
        QStringList columns;
        for (int column = 0; column < statement.columnCount(); ++column)
            columns.append(statement.isNull(column) ? QStringLiteral("NULL")
                                                    : QString::fromUtf8(statement.text(column)));
        return columns.join(u'|');
    }
};

} // namespace jotwell
