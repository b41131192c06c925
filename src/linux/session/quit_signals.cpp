#include "linux/session/quit_signals.h"

#include <array>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace pingwell {

namespace {

constexpr std::array caught{SIGTERM, SIGINT, SIGHUP};

/// A signal handler may do almost nothing, so it only writes to this pipe, which wakes the event loop.
std::array<int, 2> pipeEnds{-1, -1};

void noteSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &byte, 1);
}

void catchSignal(int number)
{
    struct sigaction action = {};
    // A signal that is ignored stays so: the caller (nohup) may want the program to outlive its terminal.
    if (sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        return;
    action.sa_handler = noteSignal;
    // SA_RESETHAND: a second signal ends the program at once, in case the first one had no effect.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    sigaction(number, &action, nullptr);
}

} // namespace

QuitSignals::QuitSignals(QObject *parent)
    : QObject(parent)
{
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_arrived = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_arrived.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] const ssize_t count = read(pipeEnds[0], &byte, 1);
        emit quitRequested();
    });
    for (const int number : caught)
        catchSignal(number);
}

QuitSignals::~QuitSignals()
{
    for (const int number : caught)
        std::signal(number, SIG_DFL);
}

} // namespace pingwell
