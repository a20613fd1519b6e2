#pragma once

#include "Platform/Scheduler.h"

#include <QObject>
#include <QPointer>

#include <vector>

namespace jotwell {

/// A scheduler whose time passes only by `advance`: due work runs in the order of its times, and of
/// its making among equals.
class FakeScheduler : public Scheduler {
public:
    void after(std::chrono::milliseconds delay, QObject* context,
               std::function<void()> work) override;

    /// Lets time pass; work that is scheduled meanwhile and falls due runs as well.
    void advance(std::chrono::milliseconds by);

    [[nodiscard]] std::size_t pendingCount() const { return m_pending.size(); }

private:
    struct Pending {
        std::chrono::milliseconds due;
        QPointer<QObject> context;
        std::function<void()> work;
    };

    std::chrono::milliseconds m_now{0};
    std::vector<Pending> m_pending;
};

} // namespace jotwell
