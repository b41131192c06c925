#include "store/ticker.h"

#include "async/launch.h"

#include <algorithm>
#include <utility>

namespace pingwell {

using namespace std::chrono_literals;

namespace {

/// While nobody looks: after so long a computer clock that was set is noticed all the same.
constexpr std::chrono::milliseconds longestPause(15'000);

} // namespace

Ticker::Ticker(std::shared_ptr<Clock> clock, Instant now, NextDeadline nextDeadline)
    : m_clock(std::move(clock))
    , m_now(now)
    , m_nextDeadline(std::move(nextDeadline))
{
}

Ticker::~Ticker()
{
    m_ticking.request_stop();
}

void Ticker::start()
{
    m_ticking.request_stop();
    m_ticking = std::stop_source();
    launch("clock", run(this, m_clock, m_ticking.get_token()));
}

void Ticker::setWatched(bool watched)
{
    if (std::exchange(m_isWatched, watched) != watched)
        takeTime();
}

void Ticker::takeTime()
{
    // Until it is started, time stands still.
    if (!m_ticking.stop_possible())
        return;
    tick();
    start();
}

QCoro::Task<> Ticker::run(QPointer<Ticker> self, std::shared_ptr<Clock> clock, std::stop_token stop)
{
    while (self && !stop.stop_requested()) {
        const auto pause = self->untilNextTick();
        co_await clock->sleep(pause, stop);
        if (stop.stop_requested() || !self)
            co_return;
        self->tick();
    }
}

void Ticker::tick()
{
    const Instant before = m_now;
    m_now = present();
    if (m_now != before)
        emit nowChanged();
}

/// Nobody sees a countdown that is not shown; but an ask whose time is up no longer waits, and the number in the status
/// area tells so at once.
std::chrono::milliseconds Ticker::untilNextTick() const
{
    if (m_isWatched)
        return 1s;
    const auto deadline = m_nextDeadline();
    if (!deadline || *deadline >= m_now + longestPause)
        return longestPause;
    return std::max(std::chrono::ceil<std::chrono::milliseconds>(*deadline - m_now), std::chrono::milliseconds(1));
}

} // namespace pingwell
