#include "Platform/qt/QtScheduler.h"

#include <QTimer>

#include <limits>

namespace jotwell {

void QtScheduler::after(std::chrono::milliseconds delay, QObject* context,
                        std::function<void()> work)
{
    using std::chrono::milliseconds;
    // A timer counts its milliseconds in an int and takes a longer time for any other.
    constexpr milliseconds longest(std::numeric_limits<int>::max());
    if (delay > longest) {
        after(longest, context, [this, rest = delay - longest, context, work = std::move(work)] {
            after(rest, context, work);
        });
        return;
    }
    QTimer::singleShot(std::max(delay, milliseconds(0)), Qt::PreciseTimer, context,
                       std::move(work));
}

} // namespace jotwell
