#pragma once

#include "async/clock.h"
#include "store/service_clock.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace pingwell {

/// The time that all screens go by: the service's where its answers have told it, else this computer's. It stands
/// still until it is started. Then it moves once a second, or while nobody looks at each poll and when an ask's time
/// is up. Main thread.
class Ticker : public QObject
{
    Q_OBJECT

public:
    /// The earliest moment at which the time of an ask that waits is up; none without such an ask.
    using NextDeadline = std::function<std::optional<Instant>()>;

    Ticker(std::shared_ptr<Clock> clock, Instant now, NextDeadline nextDeadline);
    ~Ticker() override;

    /// The time of the last tick.
    [[nodiscard]] Instant now() const { return m_now; }
    /// The time at this very moment.
    [[nodiscard]] Instant present() const { return m_serviceClock.now(*m_clock); }
    /// A time that nobody can set, for measuring.
    [[nodiscard]] Seconds uptime() const { return m_clock->uptime(); }

    void start();
    void setWatched(bool watched);
    /// Reads the clock, and reckons anew when it is to tick.
    void takeTime();

    /// An answer to a request that was sent at that `uptime` says that it was written at `date`.
    void learn(Instant date, Seconds sent) { m_serviceClock.learn(date, sent, m_clock->uptime()); }
    /// Another server has another clock.
    void forgetService() { m_serviceClock.forget(); }

signals:
    void nowChanged();

private:
    static QCoro::Task<> run(QPointer<Ticker> self, std::shared_ptr<Clock> clock, std::stop_token stop);
    void tick();
    [[nodiscard]] std::chrono::milliseconds untilNextTick() const;

    std::shared_ptr<Clock> m_clock;
    Instant m_now;
    NextDeadline m_nextDeadline;
    ServiceClock m_serviceClock;
    bool m_isWatched = true;
    std::stop_source m_ticking{std::nostopstate};
};

} // namespace pingwell
