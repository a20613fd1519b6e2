#pragma once

#include "Support/Database.h"

#include <QString>

#include <atomic>
#include <functional>

namespace jotwell {

/// The open database file: opened when it is first needed, made anew when it is damaged. Belongs to
/// the database's thread, but for what is said to be any thread's.
class IndexConnection {
public:
    explicit IndexConnection(QString file);

    /// Nothing is begun any more from now on. Any thread.
    void stop() { m_isStopped = true; }
    [[nodiscard]] bool isStopped() const { return m_isStopped; }

    /// A search that begins and is going to wait for its turn; it may not, and gives nothing, while
    /// something longer runs than it should wait for. Any thread.
    [[nodiscard]] bool beginWaiting();
    /// It's the turn of one that began.
    void endWaiting() { --m_waitingSearches; }
    [[nodiscard]] bool isWantedElsewhere() const { return m_isStopped || m_waitingSearches > 0; }

    /// Long work begins, which it may not while a search waits.
    [[nodiscard]] bool beginLongWork();
    void endLongWork() { m_isInLongWork = false; }

    /// Whether there is a handle, or will be. Any thread.
    [[nodiscard]] bool hasHandle() const { return m_hasHandle; }

    /// Opens the database if that hasn't been done, and makes its tables if they couldn't be made
    /// so far.
    void prepare();
    /// Writes out what was held back and closes.
    void close();

    /// Runs `statement`, which gives SQLite's result code, and again if a damaged file could be
    /// replaced for it. Nothing once stopped.
    void perform(const std::function<int(Database&)>& statement);
    /// Puts a new file in the place of a damaged one, if that is what `result` tells and it hasn't
    /// been done too often.
    bool mend(int result);
    /// Does the syncs that were held back.
    void syncHeldBack();

    [[nodiscard]] Database& database() { return m_database; }
    /// Grows with each new file.
    [[nodiscard]] int generation() const { return m_generation; }

private:
    enum class Failures { told, passedOver };

    int initializeDatabase();
    int createTables(Failures failures);
    int runScripts(Failures failures);
    void loadIndexFromDatabase();

    const QString m_file;
    Database m_database;
    bool m_wasOpened = false;
    bool m_isOpen = false;
    bool m_hasTables = false;
    bool m_isMendable = true;
    int m_generation = 0;
    std::atomic<bool> m_hasHandle = true;
    std::atomic<bool> m_isStopped = false;
    std::atomic<bool> m_isInLongWork = false;
    std::atomic<int> m_waitingSearches = 0;
};

} // namespace jotwell
