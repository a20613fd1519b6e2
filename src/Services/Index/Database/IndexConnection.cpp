#include "Services/Index/Database/IndexConnection.h"

#include "Services/Index/Database/DeferredSyncVfs.h"
#include "Services/Index/Database/IndexFile.h"
#include "Services/Index/Database/IndexSchema.h"
#include "Services/Index/Database/IndexStatements.h"
#include "Support/Logging.h"

namespace jotwell {

namespace {

// A disk that damages every file must not be filled with them.
constexpr int mostGenerations = 3;

QString category()
{
    return QStringLiteral("TagIndex");
}

} // namespace

IndexConnection::IndexConnection(QString file) : m_file(std::move(file)) {}

// Each of the two says first what it is about to do and then looks at the other, so that not both
// can begin.

bool IndexConnection::beginWaiting()
{
    ++m_waitingSearches;
    if (!m_isInLongWork)
        return true;
    --m_waitingSearches;
    return false;
}

bool IndexConnection::beginLongWork()
{
    m_isInLongWork = true;
    if (isWantedElsewhere())
        m_isInLongWork = false;
    return m_isInLongWork;
}

void IndexConnection::prepare()
{
    if (!m_wasOpened) {
        m_wasOpened = true;
        mend(initializeDatabase());
    } else if (m_isOpen && !m_hasTables) {
        // Told when it first failed, and this may come with each note that is saved.
        mend(createTables(Failures::passedOver));
    }
}

int IndexConnection::initializeDatabase()
{
    prepareIndexFile(m_file);
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX;
    const int opened = m_database.open(m_file, flags, DeferredSyncVfs::name());
    m_isOpen = opened == SQLITE_OK;
    m_hasHandle = m_database.handle() != nullptr;
    if (!m_isOpen) {
        logError(category(), QStringLiteral("Failed to open database"));
        return opened;
    }
    const int created = createTables(Failures::told);
    loadIndexFromDatabase();
    return created;
}

// Fifteen commits on a first start, which one sync is enough for.
int IndexConnection::createTables(Failures failures)
{
    const auto created = [&] {
        const DeferredSyncVfs::Hold hold(m_database.handle());
        return runScripts(failures);
    }();
    syncHeldBack();
    return created;
}

int IndexConnection::runScripts(Failures failures)
{
    const auto fail = [failures](int result, const QString& message) {
        if (failures == Failures::told)
            logError(category(), message);
        return result;
    };
    if (const int result = m_database.execute(basicTablesScript); result != SQLITE_OK)
        return fail(result, QStringLiteral("Failed to create basic tables"));
    if (const int result = m_database.execute(contentTablesScript); result != SQLITE_OK)
        return fail(result, QStringLiteral("Failed to create content tables: ") +
                                m_database.errorMessage());
    m_hasTables = true;
    logInfo(category(), QStringLiteral("Successfully created FTS5 content indexing tables"));
    return SQLITE_OK;
}

// Where loading would go: the files of the vault are what counts, and are read at each start.
void IndexConnection::loadIndexFromDatabase() {}

void IndexConnection::close()
{
    syncHeldBack();
    m_database.close();
    m_isOpen = false;
}

void IndexConnection::perform(const std::function<int(Database&)>& statement)
{
    if (m_isStopped)
        return;
    prepare();
    if (mend(statement(m_database)))
        statement(m_database);
}

bool IndexConnection::mend(int result)
{
    if (!isDamage(result) || !m_isMendable)
        return false;
    m_database.close();
    m_hasTables = false;
    const bool isAside = setAsideIndexFile(m_file);
    if (isAside) {
        ++m_generation;
        logError(category(), QStringLiteral("The damaged database has been set aside"));
    }
    m_isMendable = isAside && m_generation < mostGenerations;
    return initializeDatabase() == SQLITE_OK && isAside;
}

void IndexConnection::syncHeldBack()
{
    const int result = DeferredSyncVfs::syncHeldBack(m_database.handle());
    if (result != SQLITE_OK)
        logError(category(), QStringLiteral("Failed to sync database: ") +
                                 QString::fromUtf8(sqlite3_errstr(result)));
}

} // namespace jotwell
