#include "Fakes/FakeScheduler.h"

#include <algorithm>

namespace jotwell {

void FakeScheduler::after(std::chrono::milliseconds delay, QObject* context,
                          std::function<void()> work)
{
    m_pending.push_back({m_now + delay, context, std::move(work)});
}

void FakeScheduler::advance(std::chrono::milliseconds by)
{
    const auto end = m_now + by;
    for (;;) {
        const auto next = std::min_element(
            m_pending.begin(), m_pending.end(),
            [](const Pending& left, const Pending& right) { return left.due < right.due; });
        if (next == m_pending.end() || next->due > end)
            break;
        const Pending due = std::move(*next);
        m_pending.erase(next);
        m_now = std::max(m_now, due.due);
        if (due.context)
            due.work();
    }
    m_now = end;
}

} // namespace jotwell
