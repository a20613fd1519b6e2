#include "Fakes/FailingFileCalls.h"

#include <QMutexLocker>

#include <cerrno>

namespace jotwell {

void FailingFileCalls::failAt(std::optional<int> call, int code)
{
    const QMutexLocker lock(&m_mutex);
    m_failing = call;
    m_code = code;
    m_hasFailed = false;
    m_calls.clear();
}

bool FailingFileCalls::fails(const char* call)
{
    const QMutexLocker lock(&m_mutex);
    const bool failing = m_failing && m_calls.size() == *m_failing;
    m_calls.append(QString::fromLatin1(call));
    if (failing) {
        m_hasFailed = true;
        errno = m_code;
    }
    return failing;
}

void FailingFileCalls::hold(int passing)
{
    m_gate.tryAcquire(m_gate.available()); // what an earlier letting go has left
    m_gate.release(passing);
    m_isHeld = true;
}

void FailingFileCalls::letGo()
{
    constexpr int all = 1000;
    m_isHeld = false;
    m_gate.release(all);
}

bool FailingFileCalls::waitForSyncs(int count, std::chrono::milliseconds patience)
{
    return m_syncs.tryAcquire(count, static_cast<int>(patience.count()));
}

int FailingFileCalls::open(const char* path, int flags, mode_t mode)
{
    return fails("open") ? -1 : PosixFileCalls::open(path, flags, mode);
}

ssize_t FailingFileCalls::write(int descriptor, const void* bytes, std::size_t count)
{
    return fails("write") ? -1 : PosixFileCalls::write(descriptor, bytes, count);
}

int FailingFileCalls::fchmod(int descriptor, mode_t mode)
{
    return fails("fchmod") ? -1 : PosixFileCalls::fchmod(descriptor, mode);
}

int FailingFileCalls::fsync(int descriptor)
{
    if (m_isHeld) {
        m_syncs.release();
        m_gate.acquire();
    }
    return fails("fsync") ? -1 : PosixFileCalls::fsync(descriptor);
}

int FailingFileCalls::close(int descriptor)
{
    const bool failing = fails("close");
    PosixFileCalls::close(descriptor); // a failing close closes all the same
    if (failing)
        errno = m_code;
    return failing ? -1 : 0;
}

int FailingFileCalls::rename(const char* from, const char* to)
{
    return fails("rename") ? -1 : PosixFileCalls::rename(from, to);
}

int FailingFileCalls::unlink(const char* path)
{
    return fails("unlink") ? -1 : PosixFileCalls::unlink(path);
}

int FailingFileCalls::openNameless(const char* folder, mode_t mode)
{
    if (!hasNamelessFiles) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return fails("openNameless") ? -1 : PosixFileCalls::openNameless(folder, mode);
}

int FailingFileCalls::linkNameless(int descriptor, const char* path)
{
    return fails("linkNameless") ? -1 : PosixFileCalls::linkNameless(descriptor, path);
}

int FailingFileCalls::exchange(const char* first, const char* second)
{
    if (!hasExchange) {
        errno = EINVAL;
        return -1;
    }
    return fails("exchange") ? -1 : PosixFileCalls::exchange(first, second);
}

} // namespace jotwell
