#pragma once

#include "Samples.h"

#include <QCoroTask>

#include <QEventLoop>
#include <QObject>

#include <optional>

namespace jotwell::bench {

template <typename T>
struct Timed {
    Samples::Clock::duration time{};
    T value;
};

/// Starts a task by `start()`, runs the event loop until it has ended, and gives the time between
/// and its result.
template <typename Start>
auto timedTask(Start start) -> Timed<typename std::invoke_result_t<Start>::value_type>
{
    using T = typename std::invoke_result_t<Start>::value_type;
    const QObject context;
    QEventLoop loop;
    std::optional<T> result;
    Samples::Clock::time_point end;
    const auto begin = Samples::Clock::now();
    QCoro::connect(start(), &context, [&](const T& value) {
        end = Samples::Clock::now();
        result.emplace(value);
        loop.quit();
    });
    if (!result)
        loop.exec();
    return {end - begin, std::move(*result)};
}

/// The same for a task without a result.
template <typename Start>
Samples::Clock::duration timedRun(Start start)
{
    const QObject context;
    QEventLoop loop;
    std::optional<Samples::Clock::time_point> end;
    const auto begin = Samples::Clock::now();
    QCoro::connect(start(), &context, [&] {
        end = Samples::Clock::now();
        loop.quit();
    });
    if (!end)
        loop.exec();
    return *end - begin;
}

} // namespace jotwell::bench
