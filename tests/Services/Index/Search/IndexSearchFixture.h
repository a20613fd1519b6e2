#pragma once

#include "Fakes/FakeClock.h"
#include "Fakes/TaskRunner.h"
#include "QtPrinters.h"
#include "Services/Index/Database/IndexDatabase.h"
#include "Services/Index/NoteIndex.h"
#include "Services/Index/Search/IndexSearch.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"

#include <QThreadPool>

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

/// Searches over notes that lie in memory and over a database of their own.
class IndexSearchFixture : public testing::Test {
public:
    IndexSearchFixture() { m_databaseThread.setMaxThreadCount(1); }
    ~IndexSearchFixture() override
    {
        m_search.reset();
        m_background.waitForDone();
        closeDatabase();
    }
    IndexSearchFixture(const IndexSearchFixture&) = delete;
    IndexSearchFixture& operator=(const IndexSearchFixture&) = delete;

protected:
    /// A note `name` of the vault, as old as the clock shows.
    void put(const QByteArray& name, const QByteArray& text = {}, const TagSet& tags = {})
    {
        FileMetadata record;
        record.path = "/vault/" + name;
        record.modificationDate = m_clock.now();
        record.contentTags = tags;
        record.fullContent = text;
        record.cleanedContent = text;
        m_index.add(std::make_shared<const FileMetadata>(std::move(record)));
    }

    void putMany(int count)
    {
        for (int number = 0; number < count; ++number) {
            put("Note " + QByteArray::number(number) + ".md", "Some text");
            m_clock.advance(std::chrono::seconds(1));
        }
    }

    void openDatabase()
    {
        m_database = std::make_unique<IndexDatabase>(databaseFile(), m_databaseThread, m_clock);
        m_databaseThread.waitForDone();
    }
    void closeDatabase()
    {
        m_database.reset();
        m_databaseThread.waitForDone();
    }
    [[nodiscard]] QString databaseFile() const { return m_folder.pathOf(QStringLiteral("x.db")); }

    IndexSearch& search()
    {
        if (!m_database)
            openDatabase();
        if (!m_search)
            m_search = std::make_unique<IndexSearch>(m_index, *m_database, m_clock, m_background);
        return *m_search;
    }

    SearchAnswer searchNotes(const QString& query) { return finished(search().searchNotes(query)); }
    SearchAnswer searchContent(const QString& query)
    {
        return finished(search().searchContent(query));
    }

    /// The titles of what was found, in their order.
    static QStringList titles(const SearchAnswer& answer)
    {
        QStringList titles;
        for (const IndexSearchResult& result : answer.results)
            titles.append(result.title);
        return titles;
    }
    QStringList namesFor(const QString& query) { return titles(searchNotes(query)); }
    QStringList contentFor(const QString& query) { return titles(searchContent(query)); }

    LogCapture m_log;
    ScratchFolder m_folder;
    FakeClock m_clock;
    NoteIndex m_index;
    QThreadPool m_background;
    QThreadPool m_databaseThread;
    std::unique_ptr<IndexDatabase> m_database;
    std::unique_ptr<IndexSearch> m_search;
};

} // namespace jotwell
