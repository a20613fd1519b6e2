#include "Services/Index/Database/SyncCalls.h"

#include <QFileInfo>

#include <cerrno>
#include <mutex>

#include <sys/syscall.h>
#include <unistd.h>

namespace jotwell {

namespace {

struct Record {
    std::mutex mutex;
    bool isKept = false;
    QStringList names;
    QString failing;
};

Record& record()
{
    static Record record;
    return record;
}

QString nameOf(int descriptor)
{
    const QString link = QStringLiteral("/proc/self/fd/%1").arg(descriptor);
    return QFileInfo(QFileInfo(link).symLinkTarget()).fileName();
}

int sync(int descriptor, long call)
{
    {
        const std::lock_guard lock(record().mutex);
        if (record().isKept) {
            const QString name = nameOf(descriptor);
            record().names.append(name);
            if (name == record().failing) {
                errno = EIO;
                return -1;
            }
        }
    }
    return static_cast<int>(::syscall(call, descriptor));
}

} // namespace

SyncCalls::SyncCalls()
{
    const std::lock_guard lock(record().mutex);
    record().isKept = true;
}

SyncCalls::~SyncCalls()
{
    const std::lock_guard lock(record().mutex);
    record().isKept = false;
    record().names.clear();
    record().failing.clear();
}

QStringList SyncCalls::taken()
{
    const std::lock_guard lock(record().mutex);
    return std::exchange(record().names, {});
}

void SyncCalls::fail(const QString& name)
{
    const std::lock_guard lock(record().mutex);
    record().failing = name;
}

} // namespace jotwell

// The program's own functions go before the C library's, for its libraries too.

extern "C" {

int fsync(int descriptor)
{
    return jotwell::sync(descriptor, SYS_fsync);
}

int fdatasync(int descriptor)
{
    return jotwell::sync(descriptor, SYS_fdatasync);
}

} // extern "C"
