#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

namespace jotwell::bench {

/// Threads, one for each core, that share the folders of a tree.
class FolderCrew {
public:
    /// `root` is a descriptor of the tree's top, the first folder to be taken.
    explicit FolderCrew(int root) : m_waiting{root}, m_unfinished(1) {}

    /// Runs `work` on each thread and comes back when all have ended.
    void run(const std::function<void()>& work);

    /// For the work: another folder, or nothing once all are finished.
    [[nodiscard]] std::optional<int> next();
    void add(int folder);
    void finished();

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<int> m_waiting;
    std::size_t m_unfinished = 0;
};

} // namespace jotwell::bench
