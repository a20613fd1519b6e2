#include "Platform/linux/UnixTerminationSignals.h"

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace jotwell {

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

std::atomic<int> requestDescriptor{-1};
static_assert(std::atomic<int>::is_always_lock_free, "used in a signal handler");

// Only what is safe at any point of the program: a write into a pipe that never blocks.
void handleSignal(int number)
{
    const int savedError = errno;
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const auto written = ::write(requestDescriptor.load(), &byte, 1);
    errno = savedError;
}

// Whoever started the program with a signal ignored, as nohup does, wants it to stay so.
void setHandlerOf(int number, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    struct sigaction before = {};
    sigaction(number, nullptr, &before);
    if (before.sa_handler != SIG_IGN)
        sigaction(number, &action, nullptr);
}

void setHandler(void (*handler)(int))
{
    for (const int number : handledSignals)
        setHandlerOf(number, handler);
}

// Nobody who listens to the program's output any more is no reason to end. Unlike an ignored
// signal, one with a handler is what it always is to the programs that this one starts.
void outliveReadersOfOutput()
{
    setHandlerOf(SIGPIPE, [](int) {});
}

} // namespace

UnixTerminationSignals::~UnixTerminationSignals()
{
    if (m_pipe[0] < 0)
        return;
    setHandler(SIG_DFL);
    setHandlerOf(SIGPIPE, SIG_DFL);
    m_notifier.reset();
    requestDescriptor = -1;
    for (const int descriptor : m_pipe)
        ::close(descriptor);
}

void UnixTerminationSignals::listen(std::function<void()> requested)
{
    m_requested = std::move(requested);
    if (m_pipe[0] >= 0 || ::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { readRequests(); });
    requestDescriptor = m_pipe[1];
    setHandler(handleSignal);
    outliveReadersOfOutput();
}

void UnixTerminationSignals::readRequests()
{
    std::array<char, 16> bytes{};
    ssize_t count = 0;
    while ((count = ::read(m_pipe[0], bytes.data(), bytes.size())) > 0) {
        for (ssize_t i = 0; i < count; ++i)
            m_requested();
    }
}

} // namespace jotwell
