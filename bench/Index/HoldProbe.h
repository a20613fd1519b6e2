#pragma once

#include "ThreadWork.h"

#include <QSocketNotifier>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

namespace jotwell::bench {

/// Measures for how long the main thread was held at a stretch while this object lived: another
/// thread knocks every half millisecond, as a key or a frame would, and it is seen how long it
/// takes until the event loop answers. Main thread.
class HoldProbe {
public:
    HoldProbe();
    ~HoldProbe();
    HoldProbe(const HoldProbe&) = delete;
    HoldProbe& operator=(const HoldProbe&) = delete;

    /// The longest wait, in milliseconds, also for a core that others had.
    [[nodiscard]] double longestWait() const { return m_longestWait; }
    /// The most time, in milliseconds, that the main thread itself has worked between two answers.
    [[nodiscard]] double longestWork() const { return m_longestWork; }

    /// Ends the program unless a stretch of 10 milliseconds is seen as one.
    static void checkItself();

private:
    void knock();
    void answer();

    int m_door;
    QSocketNotifier m_notifier;
    std::atomic<std::int64_t> m_knockedAt = 0; ///< 0: answered
    std::atomic<bool> m_isOver = false;
    std::int64_t m_workBefore;
    double m_longestWait = 0;
    double m_longestWork = 0;
    std::thread m_thread;
};

/// Prints both figures of the job.
void printHolds(const std::string& job, const HoldProbe& probe);

} // namespace jotwell::bench
