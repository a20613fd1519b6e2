#include "Platform/qt/QtScheduler.h"

#include <QTimer>

namespace jotwell {

void QtScheduler::after(std::chrono::milliseconds delay, QObject* context,
                        std::function<void()> work)
{
    QTimer::singleShot(std::max(delay, std::chrono::milliseconds(0)), Qt::PreciseTimer, context,
                       std::move(work));
}

} // namespace jotwell
