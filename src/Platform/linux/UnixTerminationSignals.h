#pragma once

#include "Platform/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <memory>

namespace jotwell {

/// Carries SIGTERM, SIGINT and SIGHUP over a pipe to the main thread, and lets the program outlive
/// whoever reads its output. One at a time in a process; when it goes, the signals have their
/// default effect again. Children inherit none of it.
class UnixTerminationSignals : public TerminationSignals {
public:
    UnixTerminationSignals() = default;
    ~UnixTerminationSignals() override;

    void listen(std::function<void()> requested) override;

private:
    void readRequests();

    std::function<void()> m_requested;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::array<int, 2> m_pipe{-1, -1};
};

} // namespace jotwell
