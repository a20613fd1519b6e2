#include "driver/Operations.h"

#include "driver/EventLoop.h"
#include "driver/Session.h"

#include <algorithm>
#include <limits>

namespace jotwell {

namespace {

using Milliseconds = std::chrono::milliseconds;

constexpr double usualDrainTime = 2000;

Milliseconds milliseconds(double count)
{
    constexpr double mostOfTimers = std::numeric_limits<int>::max();
    return std::chrono::ceil<Milliseconds>(
        std::chrono::duration<double, std::milli>(std::clamp(count, 0.0, mostOfTimers)));
}

Answer advance(ScriptedClock& clock, double seconds)
{
    const auto now = std::chrono::duration<double>(clock.now().time_since_epoch()).count();
    if (!fromJson<Clock::TimePoint>(now + seconds))
        return badRequest(QStringLiteral("No clock goes so far"));
    const std::chrono::duration<double> by(seconds);
    clock.advance(std::chrono::round<Clock::TimePoint::duration>(by));
    return QJsonValue();
}

} // namespace

void addSessionOps(Operations& ops, Session& session)
{
    ops.add(u"loop.run", {u"ms"}, [](double ms) { runEventLoop(milliseconds(ms)); });
    ops.add(u"loop.drain", {u"timeoutMs"}, [&session](std::optional<double> timeOut) -> QJsonValue {
        const auto time = milliseconds(timeOut.value_or(usualDrainTime));
        const bool isIdle =
            drainEventLoop([&session] { return session.platform().isWorking(); }, time);
        return QJsonObject{{QStringLiteral("idle"), isIdle}};
    });
    ops.add(u"clock.set", {u"now"}, [&session](std::optional<Clock::TimePoint> now) {
        session.platform().clock().stopAt(now);
    });
    ops.add(u"clock.advance", {u"seconds"},
            [&session](double seconds) { return advance(session.platform().clock(), seconds); });
    ops.add(u"effects.take", {u"kinds"},
            [&session](const std::optional<QStringList>& kinds) -> QJsonValue {
                return session.effects().take(kinds);
            });
}

} // namespace jotwell
