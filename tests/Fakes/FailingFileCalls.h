#pragma once

#include "Platform/linux/PosixFileCalls.h"

#include <QMutex>
#include <QSemaphore>
#include <QString>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <optional>

namespace jotwell {

/// The real file system with an edge that fails on demand: one call, counted from the first, gives
/// an error instead of doing its work. It can also stand for a file system without nameless files
/// or without exchange, and for a disk that takes its time.
class FailingFileCalls : public PosixFileCalls {
public:
    bool hasNamelessFiles = true;
    bool hasExchange = true;

    /// The call with this number fails with `code`; numbers start at 0. No number, no failure.
    void failAt(std::optional<int> call, int code);
    /// Names of the calls made since the last `failAt`, in order.
    [[nodiscard]] const QStringList& calls() const { return m_calls; }
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    /// From now on syncs wait until they are let go, but for the first ones of that number.
    void hold(int passing = 0);
    void letGo();
    /// False if so many more syncs don't begin within that time.
    [[nodiscard]] bool waitForSyncs(int count,
                                    std::chrono::milliseconds patience = std::chrono::seconds(5));

    int open(const char* path, int flags, mode_t mode) override;
    ssize_t write(int descriptor, const void* bytes, std::size_t count) override;
    int fchmod(int descriptor, mode_t mode) override;
    int fsync(int descriptor) override;
    int close(int descriptor) override;
    int rename(const char* from, const char* to) override;
    int unlink(const char* path) override;
    int openNameless(const char* folder, mode_t mode) override;
    int linkNameless(int descriptor, const char* path) override;
    int exchange(const char* first, const char* second) override;

private:
    [[nodiscard]] bool fails(const char* call);

    std::atomic<bool> m_isHeld = false;
    QSemaphore m_syncs;
    QSemaphore m_gate;
    QMutex m_mutex; ///< calls come from several threads at once
    std::optional<int> m_failing;
    int m_code = 0;
    bool m_hasFailed = false;
    QStringList m_calls;
};

} // namespace jotwell
