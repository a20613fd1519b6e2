#include "Services/Index/Database/DeferredSyncVfs.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <fcntl.h>
#include <unistd.h>

namespace jotwell {

namespace {

// Our own file controls; SQLite keeps those below 100 to itself.
enum FileControl : int { startHolding = 0x4a570001, stopHolding, syncNow };

// Followed in memory by the file as the usual VFS has it.
struct HeldFile {
    sqlite3_file base;
    HeldFile* database; // of a journal; of a database file itself
    const char* path;   // of a database file; SQLite keeps it until the file is closed
    bool isHolding;
    bool isSyncDue;
};

HeldFile* heldFile(sqlite3_file* file)
{
    return reinterpret_cast<HeldFile*>(file);
}

sqlite3_file* realFile(sqlite3_file* file)
{
    return reinterpret_cast<sqlite3_file*>(heldFile(file) + 1);
}

sqlite3_vfs* realVfs(sqlite3_vfs* vfs)
{
    return static_cast<sqlite3_vfs*>(vfs->pAppData);
}

// The method of that name of the usual VFS or file.
template <auto method, typename R, typename... Arguments>
R ofVfs(sqlite3_vfs* vfs, Arguments... arguments)
{
    return (realVfs(vfs)->*method)(realVfs(vfs), arguments...);
}

template <auto method, typename R, typename... Arguments>
R ofFile(sqlite3_file* file, Arguments... arguments)
{
    return (realFile(file)->pMethods->*method)(realFile(file), arguments...);
}

int syncFolderOf(const char* path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(QFile::decodeName(path)).path());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return SQLITE_IOERR_DIR_FSYNC;
    const int result = ::fsync(descriptor);
    ::close(descriptor);
    return result == 0 ? SQLITE_OK : SQLITE_IOERR_DIR_FSYNC;
}

// The folder as well: journals have come and gone there.
int syncDatabase(HeldFile* file)
{
    if (!file->isSyncDue)
        return SQLITE_OK;
    file->isSyncDue = false;
    sqlite3_file* real = realFile(&file->base);
    const int result = real->pMethods->xSync(real, SQLITE_SYNC_NORMAL);
    return result == SQLITE_OK ? syncFolderOf(file->path) : result;
}

int sync(sqlite3_file* file, int flags)
{
    HeldFile* database = heldFile(file)->database;
    if (!database || !database->isHolding)
        return ofFile<&sqlite3_io_methods::xSync, int>(file, flags);
    database->isSyncDue = true;
    return SQLITE_OK;
}

int control(sqlite3_file* file, int operation, void* argument)
{
    HeldFile* held = heldFile(file);
    switch (operation) {
    case startHolding:
    case stopHolding:
        held->isHolding = operation == startHolding;
        return SQLITE_OK;
    case syncNow:
        return syncDatabase(held);
    default:
        return ofFile<&sqlite3_io_methods::xFileControl, int>(file, operation, argument);
    }
}

// SQLite asks by the version which methods there are: ours is always the real file's.
constexpr sqlite3_io_methods methodsOf(int version)
{
    using Methods = sqlite3_io_methods;
    return {
        .iVersion = version,
        .xClose = ofFile<&Methods::xClose>,
        .xRead = ofFile<&Methods::xRead>,
        .xWrite = ofFile<&Methods::xWrite>,
        .xTruncate = ofFile<&Methods::xTruncate>,
        .xSync = sync,
        .xFileSize = ofFile<&Methods::xFileSize>,
        .xLock = ofFile<&Methods::xLock>,
        .xUnlock = ofFile<&Methods::xUnlock>,
        .xCheckReservedLock = ofFile<&Methods::xCheckReservedLock>,
        .xFileControl = control,
        .xSectorSize = ofFile<&Methods::xSectorSize>,
        .xDeviceCharacteristics = ofFile<&Methods::xDeviceCharacteristics>,
        .xShmMap = ofFile<&Methods::xShmMap>,
        .xShmLock = ofFile<&Methods::xShmLock>,
        .xShmBarrier = ofFile<&Methods::xShmBarrier>,
        .xShmUnmap = ofFile<&Methods::xShmUnmap>,
        .xFetch = ofFile<&Methods::xFetch>,
        .xUnfetch = ofFile<&Methods::xUnfetch>,
    };
}

const sqlite3_io_methods* methodsLike(const sqlite3_file& real)
{
    static constexpr sqlite3_io_methods methods[] = {methodsOf(1), methodsOf(2), methodsOf(3)};
    if (!real.pMethods)
        return nullptr;
    return &methods[std::clamp(real.pMethods->iVersion, 1, 3) - 1];
}

HeldFile* databaseOf(HeldFile* file, const char* path, int flags)
{
    if (flags & SQLITE_OPEN_MAIN_DB)
        return file;
    if (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL))
        return heldFile(sqlite3_database_file_object(path));
    return nullptr;
}

int open(sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags, int* flagsGiven)
{
    HeldFile* held = heldFile(file);
    *held = {.base = {},
             .database = databaseOf(held, path, flags),
             .path = path,
             .isHolding = false,
             .isSyncDue = false};
    sqlite3_file* real = realFile(file);
    const int result = realVfs(vfs)->xOpen(realVfs(vfs), path, real, flags, flagsGiven);
    file->pMethods = methodsLike(*real);
    return result;
}

sqlite3_vfs makeVfs(sqlite3_vfs* real)
{
    using Vfs = sqlite3_vfs;
    return {
        .iVersion = std::min(real->iVersion, 3),
        .szOsFile = static_cast<int>(sizeof(HeldFile)) + real->szOsFile,
        .mxPathname = real->mxPathname,
        .pNext = nullptr,
        .zName = "jotwell-deferred-sync",
        .pAppData = real,
        .xOpen = open,
        .xDelete = ofVfs<&Vfs::xDelete>,
        .xAccess = ofVfs<&Vfs::xAccess>,
        .xFullPathname = ofVfs<&Vfs::xFullPathname>,
        .xDlOpen = ofVfs<&Vfs::xDlOpen>,
        .xDlError = ofVfs<&Vfs::xDlError>,
        .xDlSym = ofVfs<&Vfs::xDlSym>,
        .xDlClose = ofVfs<&Vfs::xDlClose>,
        .xRandomness = ofVfs<&Vfs::xRandomness>,
        .xSleep = ofVfs<&Vfs::xSleep>,
        .xCurrentTime = ofVfs<&Vfs::xCurrentTime>,
        .xGetLastError = ofVfs<&Vfs::xGetLastError>,
        .xCurrentTimeInt64 = ofVfs<&Vfs::xCurrentTimeInt64>,
        .xSetSystemCall = ofVfs<&Vfs::xSetSystemCall>,
        .xGetSystemCall = ofVfs<&Vfs::xGetSystemCall>,
        .xNextSystemCall = ofVfs<&Vfs::xNextSystemCall>,
    };
}

void controlDatabase(sqlite3* database, FileControl operation)
{
    if (database)
        sqlite3_file_control(database, "main", operation, nullptr);
}

} // namespace

const char* DeferredSyncVfs::name()
{
    // SQLite keeps it in its list for ever.
    static sqlite3_vfs vfs = makeVfs(sqlite3_vfs_find(nullptr));
    static const int registered = sqlite3_vfs_register(&vfs, 0);
    return registered == SQLITE_OK ? vfs.zName : nullptr;
}

DeferredSyncVfs::Hold::Hold(sqlite3* database) : m_database(database)
{
    controlDatabase(m_database, startHolding);
}

DeferredSyncVfs::Hold::~Hold()
{
    controlDatabase(m_database, stopHolding);
}

int DeferredSyncVfs::syncHeldBack(sqlite3* database)
{
    if (!database)
        return SQLITE_OK;
    const int result = sqlite3_file_control(database, "main", syncNow, nullptr);
    // No file is open, so that nothing can be due.
    return result == SQLITE_ERROR || result == SQLITE_NOTFOUND ? SQLITE_OK : result;
}

} // namespace jotwell
