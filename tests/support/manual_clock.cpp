#include "support/manual_clock.h"

#include <QTimer>

#include <algorithm>
#include <vector>

namespace pingwell {

struct ManualClock::Pause
{
    ManualClock *clock;
    Instant due;
    std::stop_token stop;

    [[nodiscard]] bool await_ready() const { return stop.stop_requested(); }
    void await_suspend(std::coroutine_handle<> awaiting) { clock->m_sleepers.push_back({due, stop, awaiting}); }
    void await_resume() const {}
};

QCoro::Task<> ManualClock::sleep(std::chrono::milliseconds duration, std::stop_token stop)
{
    const std::stop_callback onStop(stop, [this] { QTimer::singleShot(0, this, &ManualClock::wakeStopped); });
    Pause pause{this, m_now + duration, stop};
    co_await pause;
}

void ManualClock::jump(std::chrono::seconds by)
{
    m_now += by;
    for (Sleeper &sleeper : m_sleepers)
        sleeper.due += by;
}

void ManualClock::wake(Instant until)
{
    while (true) {
        const auto next = std::min_element(m_sleepers.begin(), m_sleepers.end(),
                                           [](const auto &left, const auto &right) { return left.due < right.due; });
        if (next == m_sleepers.end() || next->due > until)
            break;
        m_now = std::max(m_now, next->due);
        const auto awaiting = next->awaiting;
        m_sleepers.erase(next);
        awaiting.resume();
    }
    m_now = until;
}

void ManualClock::wakeStopped()
{
    std::vector<std::coroutine_handle<>> stopped;
    m_sleepers.remove_if([&stopped](const Sleeper &sleeper) {
        if (sleeper.stop.stop_requested())
            stopped.push_back(sleeper.awaiting);
        return sleeper.stop.stop_requested();
    });
    // The last of them may take this clock along.
    for (const auto awaiting : stopped)
        awaiting.resume();
}

} // namespace pingwell
