#pragma once

#include <QCoroTask>

#include <QEventLoop>
#include <QObject>

#include <optional>

namespace jotwell {

/// Runs the event loop until `task` has ended and gives its result.
template <typename T>
T finished(QCoro::Task<T> task)
{
    const QObject context;
    QEventLoop loop;
    std::optional<T> result;
    QCoro::connect(std::move(task), &context, [&](const T& value) {
        result.emplace(value);
        loop.quit();
    });
    if (!result)
        loop.exec();
    return *result;
}

inline void finished(QCoro::Task<void> task)
{
    const QObject context;
    QEventLoop loop;
    bool isFinished = false;
    QCoro::connect(std::move(task), &context, [&] {
        isFinished = true;
        loop.quit();
    });
    if (!isFinished)
        loop.exec();
}

} // namespace jotwell
