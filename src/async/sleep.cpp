#include "async/sleep.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace pingwell {

struct Sleep::State
{
    std::chrono::milliseconds duration;
    std::stop_token stop;
    QTimer timer;
    std::optional<std::stop_callback<std::function<void()>>> onStop;
};

Sleep::Sleep(std::chrono::milliseconds duration, std::stop_token stop)
    : m_state(std::make_shared<State>())
{
    m_state->duration = duration;
    m_state->stop = std::move(stop);
    m_state->timer.setSingleShot(true);
    // No pause needs a precision finer than a second, and coarse timers share wake-ups.
    m_state->timer.setTimerType(Qt::CoarseTimer);
}

bool Sleep::await_ready() const
{
    return m_state->stop.stop_requested();
}

void Sleep::await_suspend(std::coroutine_handle<> awaiting)
{
    QTimer &timer = m_state->timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [awaiting] { awaiting.resume(); });
    timer.start(m_state->duration);
    m_state->onStop.emplace(m_state->stop, std::function<void()>([&timer] { timer.start(0); }));
}

} // namespace pingwell
