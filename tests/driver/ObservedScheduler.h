#pragma once

#include "Platform/qt/QtScheduler.h"

#include <QObject>

namespace jotwell {

/// The event loop's scheduler, of which one can ask whether a task is asleep.
class ObservedScheduler : public QtScheduler {
public:
    void resumeAfter(std::chrono::milliseconds delay, QObject* context,
                     std::function<void()> work) override;

    [[nodiscard]] bool hasSleepers() const { return m_sleepers > 0; }

private:
    QObject m_own;
    int m_sleepers = 0;
};

} // namespace jotwell
