#include "support/manual_clock.h"

#include <QTimer>

#include <vector>

namespace pingwell {

struct ManualClock::Pause
{
    ManualClock *clock;
    std::chrono::milliseconds due;
    std::stop_token stop;

    [[nodiscard]] bool await_ready() const { return stop.stop_requested(); }
    void await_suspend(std::coroutine_handle<> awaiting) { clock->m_sleepers.insert({due, {stop, awaiting}}); }
    void await_resume() const {}
};

QCoro::Task<> ManualClock::sleep(std::chrono::milliseconds duration, std::stop_token stop)
{
    const std::stop_callback onStop(stop, [this] { QTimer::singleShot(0, this, &ManualClock::wakeStopped); });
    Pause pause{this, m_elapsed + duration, stop};
    co_await pause;
}

void ManualClock::advance(std::chrono::milliseconds duration)
{
    const std::chrono::milliseconds end = m_elapsed + duration;
    while (!m_sleepers.empty() && m_sleepers.begin()->first <= end) {
        const auto next = m_sleepers.extract(m_sleepers.begin());
        m_elapsed = next.key();
        next.mapped().awaiting.resume();
    }
    m_elapsed = end;
}

void ManualClock::wakeStopped()
{
    std::vector<std::coroutine_handle<>> stopped;
    std::erase_if(m_sleepers, [&stopped](const auto &entry) {
        if (entry.second.stop.stop_requested())
            stopped.push_back(entry.second.awaiting);
        return entry.second.stop.stop_requested();
    });
    // The last of them may take this clock along.
    for (const auto awaiting : stopped)
        awaiting.resume();
}

} // namespace pingwell
