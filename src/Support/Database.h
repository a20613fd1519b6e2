#pragma once

#include <sqlite3.h>

#include <QByteArrayView>
#include <QString>

#include <memory>

namespace jotwell {

// RAII over SQLite's C interface; errors are SQLite's result codes. Not thread-safe by itself: all
// of a connection belongs to one thread at a time.

/// One statement of a database; finalised when it goes, which must be before the database. A null
/// statement (whose making failed) takes bindings, steps to SQLITE_MISUSE and has no values.
class Statement {
public:
    Statement(sqlite3* database, const char* sql);

    [[nodiscard]] bool isValid() const { return m_handle != nullptr; }
    /// The result of making it.
    [[nodiscard]] int result() const { return m_result; }

    /// Up to the text's first NUL. The bytes aren't copied: they must stay until the last step.
    void bindText(int parameter, QByteArrayView utf8);
    void bindInt(int parameter, int value);
    void bindInt64(int parameter, qint64 value);
    void bindDouble(int parameter, double value);

    int step();
    /// Ready for other values and another run.
    void reset();

    [[nodiscard]] int columnCount() const;
    [[nodiscard]] bool isNull(int column) const;
    /// Valid until the next step.
    [[nodiscard]] QByteArrayView text(int column) const;
    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] double real(int column) const;

private:
    struct Finalise {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalise> m_handle;
    int m_result = SQLITE_OK;
};

/// A connection; closed when it goes.
class Database {
public:
    Database() = default;

    /// Opens as `sqlite3_open_v2` does and gives its result code. The handle is there afterwards
    /// even when that isn't SQLITE_OK. What was open before is closed.
    int open(const QString& file, int flags, const char* vfs);
    int execute(const char* script);
    void close();

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }
    /// Of the last call that failed.
    [[nodiscard]] QString errorMessage() const;

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace jotwell
