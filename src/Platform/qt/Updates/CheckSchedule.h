#pragma once

#include "Platform/Clock.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace jotwell {

class DefaultsStore;
class Scheduler;

/// When the feed is to be read by itself: once a day by the wall clock, over all runs of the
/// program. A long timer would sleep along with the machine, so the clock is looked at every half
/// hour. Main thread only.
class CheckSchedule {
public:
    static constexpr std::chrono::minutes untilFirstLook{5};
    static constexpr std::chrono::minutes betweenLooks{30};
    static constexpr std::chrono::hours betweenChecks{24};

    /// The time of the last check is kept in `defaults`.
    CheckSchedule(const Clock& clock, Scheduler& scheduler, DefaultsStore& defaults);

    /// Runs `check` whenever one is due from now on; the first not before `untilFirstLook`.
    void start(std::function<void()> check);
    void stop() { m_looks.reset(); }
    [[nodiscard]] bool isRunning() const { return m_looks != nullptr; }

    /// A check begins now, for whatever reason and with whatever success.
    void noteCheck();

private:
    void lookAfter(std::chrono::minutes delay);
    [[nodiscard]] bool isDue();
    [[nodiscard]] std::optional<Clock::TimePoint> storedCheck() const;

    const Clock& m_clock;
    Scheduler& m_scheduler;
    DefaultsStore& m_defaults;
    std::function<void()> m_check;
    std::unique_ptr<QObject> m_looks; ///< there while it runs
};

} // namespace jotwell
