#include "Support/Database.h"

namespace jotwell {

Statement::Statement(sqlite3* database, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    m_result = sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    m_handle.reset(statement);
}

void Statement::bindText(int parameter, QByteArrayView utf8)
{
    // A null pointer would be bound as NULL.
    const char* bytes = utf8.isNull() ? "" : utf8.data();
    const auto length = static_cast<sqlite3_uint64>(qstrnlen(bytes, utf8.size()));
    sqlite3_bind_text64(m_handle.get(), parameter, bytes, length, SQLITE_STATIC, SQLITE_UTF8);
}

void Statement::bindInt(int parameter, int value)
{
    sqlite3_bind_int(m_handle.get(), parameter, value);
}

void Statement::bindInt64(int parameter, qint64 value)
{
    sqlite3_bind_int64(m_handle.get(), parameter, value);
}

void Statement::bindDouble(int parameter, double value)
{
    sqlite3_bind_double(m_handle.get(), parameter, value);
}

int Statement::step()
{
    return sqlite3_step(m_handle.get());
}

void Statement::reset()
{
    if (!m_handle)
        return;
    sqlite3_reset(m_handle.get());
    sqlite3_clear_bindings(m_handle.get());
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_handle.get());
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_handle.get(), column) == SQLITE_NULL;
}

QByteArrayView Statement::text(int column) const
{
    const auto* bytes = sqlite3_column_text(m_handle.get(), column);
    return {bytes, bytes ? sqlite3_column_bytes(m_handle.get(), column) : 0};
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_handle.get(), column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_handle.get(), column);
}

int Database::open(const QString& file, int flags, const char* vfs)
{
    close();
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(file.toUtf8().constData(), &database, flags, vfs);
    m_handle.reset(database);
    return result;
}

int Database::execute(const char* script)
{
    return sqlite3_exec(m_handle.get(), script, nullptr, nullptr, nullptr);
}

void Database::close()
{
    m_handle.reset();
}

QString Database::errorMessage() const
{
    return QString::fromUtf8(sqlite3_errmsg(m_handle.get()));
}

} // namespace jotwell
