#include "driver/ObservedScheduler.h"

#include <QPointer>

namespace jotwell {

void ObservedScheduler::resumeAfter(std::chrono::milliseconds delay, QObject* context,
                                    std::function<void()> work)
{
    ++m_sleepers;
    after(delay, &m_own, [this, context = QPointer(context), work = std::move(work)] {
        --m_sleepers;
        if (context)
            work();
    });
}

} // namespace jotwell
