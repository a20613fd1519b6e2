#pragma once

#include "Samples.h"

#include "ThreadWork.h"
#include "Window/Waiting.h"

namespace jotwell::bench {

/// Takes the times between the frames of a window. Main thread.
class FrameWatch {
public:
    using Clock = Samples::Clock;

    /// To be called at the end of each frame.
    void frame()
    {
        if (!m_isWatching)
            return;
        if (m_isStarted)
            take();
        start();
        if (m_loop)
            m_loop->quit();
    }

    /// Watches the frames of what `act()` sets going, for so long. What moves only once in a `step`
    /// of time is late by what a frame comes after that.
    template <typename Act>
    void watch(Act act, std::chrono::milliseconds time, Clock::duration step = {})
    {
        m_step = step;
        m_isStarted = false;
        m_isWatching = true;
        act();
        rest(time);
        m_isWatching = false;
    }

    /// Takes the time from the call of `act()` to the end of the first frame.
    template <typename Act>
    void watchFirst(Act act)
    {
        QEventLoop loop;
        m_step = {};
        m_isWatching = true;
        start();
        act();
        m_loop = &loop;
        execOrGiveUp(loop, "a frame");
        m_loop = nullptr;
        m_isWatching = false;
    }

    /// Also what the thread itself has worked in these times.
    void print(const std::string& name) const
    {
        m_gaps.print(name);
        m_work.print(name + ", work");
    }

private:
    void start()
    {
        m_isStarted = true;
        m_last = Clock::now();
        m_workBefore = threadWork();
    }

    void take()
    {
        m_gaps.add(std::max(Clock::now() - m_last - m_step, Clock::duration::zero()));
        m_work.add(std::chrono::nanoseconds(threadWork() - m_workBefore));
    }

    Samples m_gaps;
    Samples m_work;
    Clock::time_point m_last;
    std::int64_t m_workBefore = 0;
    Clock::duration m_step{};
    QEventLoop* m_loop = nullptr;
    bool m_isWatching = false;
    bool m_isStarted = false;
};

} // namespace jotwell::bench
