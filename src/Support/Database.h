#pragma once

#include "Support/Result.h"

#include <sqlite3.h>

#include <QByteArrayView>
#include <QString>

#include <memory>

namespace jotwell {

/// One statement of a database; finalised when it goes. A null statement (whose making failed)
/// takes bindings and steps to SQLITE_MISUSE.
class Statement {
public:
    Statement(sqlite3* database, const char* sql);

    [[nodiscard]] bool isValid() const { return m_handle != nullptr; }
    [[nodiscard]] sqlite3_stmt* handle() const { return m_handle.get(); }

private:
    struct Finalise {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalise> m_handle;
};

/// A connection; closed when it goes.
class Database {
public:
    Database() = default;

    /// Opens as `sqlite3_open_v2` does and gives its result code. The handle is there afterwards
    /// even when that isn't SQLITE_OK.
    int open(const QString& file, int flags, const char* vfs);
    int execute(const char* script);
    void close();

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }
    [[nodiscard]] QString errorMessage() const;

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace jotwell
