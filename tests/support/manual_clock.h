#pragma once

#include "async/clock.h"

#include <QObject>

#include <coroutine>
#include <map>

namespace pingwell {

/// A clock that stands still until the test moves it. Sleepers wake in the order of their due times, each at its own
/// time; what a sleeper does when it wakes has happened before `advance` returns, unless it waits for something else. A
/// stopped sleeper wakes on the next turn of the event loop.
class ManualClock final : public QObject, public Clock
{
public:
    explicit ManualClock(Instant start)
        : m_start(start)
    {
    }

    [[nodiscard]] Instant now() const override { return m_start + m_elapsed; }
    [[nodiscard]] Seconds uptime() const override { return m_elapsed; }
    QCoro::Task<> sleep(std::chrono::milliseconds duration, std::stop_token stop) override;

    void advance(std::chrono::milliseconds duration);
    /// Somebody sets the computer's clock: it reads another time, and those who sleep don't notice.
    void jump(std::chrono::seconds by) { m_start += by; }

private:
    struct Sleeper
    {
        std::stop_token stop;
        std::coroutine_handle<> awaiting;
    };
    struct Pause;

    void wakeStopped();

    Instant m_start;
    std::chrono::milliseconds m_elapsed{};
    /// By what will have elapsed when they wake.
    std::multimap<std::chrono::milliseconds, Sleeper> m_sleepers;
};

} // namespace pingwell
