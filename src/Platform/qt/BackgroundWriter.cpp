#include "Platform/qt/BackgroundWriter.h"

#include <system_error>
#include <utility>

namespace jotwell {

BackgroundWriter::BackgroundWriter(std::function<void()> write) : m_write(std::move(write)) {}

BackgroundWriter::~BackgroundWriter()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
    }
    m_isAsked.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void BackgroundWriter::ask()
{
    const std::scoped_lock lock(m_mutex);
    ++m_asked;
    if (hasThread()) {
        m_isAsked.notify_one();
        return;
    }
    m_write();
    m_done = m_asked;
}

void BackgroundWriter::wait()
{
    std::unique_lock lock(m_mutex);
    m_isDone.wait(lock, [this, asked = m_asked] { return m_done >= asked; });
}

bool BackgroundWriter::hasThread()
{
    try {
        if (!m_thread.joinable())
            m_thread = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        // The system has no more threads: whoever asks writes.
    }
    return m_thread.joinable();
}

void BackgroundWriter::run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_isAsked.wait(lock, [this] { return m_asked != m_done || m_isEnding; });
        if (m_asked == m_done)
            return;
        const quint64 asked = m_asked;
        lock.unlock();
        m_write();
        lock.lock();
        m_done = asked;
        m_isDone.notify_all();
    }
}

} // namespace jotwell
