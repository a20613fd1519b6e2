#pragma once

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace jotwell::bench {

/// Lets the event loop run for so long.
inline void rest(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Waits until something quits the loop. What never happens must not hang the bench: after five
/// seconds it ends the program.
inline void execOrGiveUp(QEventLoop& loop, const char* awaited)
{
    QTimer::singleShot(std::chrono::seconds(5), &loop, [awaited] {
        std::fprintf(stderr, "Never seen: %s\n", awaited);
        std::exit(EXIT_FAILURE);
    });
    loop.exec();
}

} // namespace jotwell::bench
