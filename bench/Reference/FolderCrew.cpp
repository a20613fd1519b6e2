#include "Reference/FolderCrew.h"

#include <thread>

namespace jotwell::bench {

void FolderCrew::run(const std::function<void()>& work)
{
    std::vector<std::thread> threads;
    for (unsigned other = 1; other < std::thread::hardware_concurrency(); ++other)
        threads.emplace_back(work);
    work();
    for (std::thread& thread : threads)
        thread.join();
}

std::optional<int> FolderCrew::next()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_waiting.empty() || m_unfinished == 0; });
    if (m_waiting.empty())
        return std::nullopt;
    const int folder = m_waiting.back();
    m_waiting.pop_back();
    return folder;
}

void FolderCrew::add(int folder)
{
    const std::lock_guard lock(m_mutex);
    m_waiting.push_back(folder);
    ++m_unfinished;
    m_changed.notify_one();
}

void FolderCrew::finished()
{
    const std::lock_guard lock(m_mutex);
    if (--m_unfinished == 0)
        m_changed.notify_all();
}

} // namespace jotwell::bench
