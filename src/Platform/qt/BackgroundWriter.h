#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace jotwell {

/// Does one piece of work whenever it is asked for, on a thread of its own, which begins with the
/// first time and sleeps in between. However often it is asked for while the work is being done,
/// the work is done once more behind that. Any thread.
class BackgroundWriter {
public:
    /// `write` doesn't ask for itself, and may be called until the writer has gone.
    explicit BackgroundWriter(std::function<void()> write);
    /// Comes back when what was asked for is done.
    ~BackgroundWriter();
    BackgroundWriter(const BackgroundWriter&) = delete;
    BackgroundWriter& operator=(const BackgroundWriter&) = delete;

    /// The work is begun after this call at least once.
    void ask();
    /// Comes back when the work has been done for all that was asked before; not for what is asked
    /// meanwhile.
    void wait();

private:
    [[nodiscard]] bool hasThread();
    void run();

    const std::function<void()> m_write;
    std::mutex m_mutex; ///< for what follows, and not held by the thread while it writes
    std::condition_variable m_isAsked;
    std::condition_variable m_isDone;
    quint64 m_asked = 0;
    quint64 m_done = 0; ///< so many of the askings
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace jotwell
