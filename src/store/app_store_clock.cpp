#include "store/app_store.h"

#include "async/launch.h"

#include <algorithm>

namespace pingwell {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds second(1000);

/// While nobody looks: after so long a computer clock that was set is noticed all the same.
constexpr std::chrono::milliseconds longestPause(15'000);

} // namespace

/// What waits for the clock.
struct AppStore::ClockSteps
{
    static QCoro::Task<> runClock(QPointer<AppStore> store, std::shared_ptr<Clock> clock, std::stop_token stop);
    static std::chrono::milliseconds untilNextTick(const AppStore &store);
    static QCoro::Task<> hideToastLater(QPointer<AppStore> store, std::shared_ptr<Clock> clock, QUuid id,
                                        std::chrono::milliseconds after, std::stop_token stop);
};

void AppStore::startClock()
{
    checkMainThread();
    m_clockTask.request_stop();
    m_clockTask = std::stop_source();
    launch("clock", ClockSteps::runClock(this, m_clock, m_clockTask.get_token()));
}

void AppStore::setWatched(bool watched)
{
    checkMainThread();
    if (watched == m_isWatched)
        return;
    m_isWatched = watched;
    takeTime();
}

void AppStore::takeTime()
{
    // Without a clock that was started, time stands still.
    if (!m_clockTask.stop_possible())
        return;
    set(m_now, serviceNow(), &AppStore::nowChanged);
    startClock();
}

QCoro::Task<> AppStore::ClockSteps::runClock(QPointer<AppStore> store, std::shared_ptr<Clock> clock,
                                             std::stop_token stop)
{
    while (store && !stop.stop_requested()) {
        const auto pause = untilNextTick(*store);
        co_await clock->sleep(pause, stop);
        if (stop.stop_requested() || !store)
            co_return;
        store->set(store->m_now, store->serviceNow(), &AppStore::nowChanged);
    }
}

/// Nobody sees a countdown that is not shown; but an ask whose time is up no longer waits, and the number in the status
/// area tells so at once.
std::chrono::milliseconds AppStore::ClockSteps::untilNextTick(const AppStore &store)
{
    if (store.m_isWatched)
        return second;
    std::chrono::milliseconds pause = longestPause;
    for (const Alert &alert : store.alerts()) {
        if (alert.expiresAt && alert.isWaiting(store.m_now) && *alert.expiresAt < store.m_now + pause)
            pause = std::chrono::ceil<std::chrono::milliseconds>(*alert.expiresAt - store.m_now);
    }
    return std::max(pause, 1ms);
}

void AppStore::showToast(const QString &message, bool isError)
{
    checkMainThread();
    if (message.isEmpty())
        return;
    const Toast toast{.message = message, .isError = isError};
    m_toast = toast;
    emit toastChanged();
    m_toastTask.request_stop();
    m_toastTask = std::stop_source();
    const auto shown = isError ? 6000ms : 3500ms;
    launch("toast", ClockSteps::hideToastLater(this, m_clock, toast.id, shown, m_toastTask.get_token()));
}

QCoro::Task<> AppStore::ClockSteps::hideToastLater(QPointer<AppStore> store, std::shared_ptr<Clock> clock, QUuid id,
                                                   std::chrono::milliseconds after, std::stop_token stop)
{
    co_await clock->sleep(after, stop);
    if (stop.stop_requested() || !store)
        co_return;
    if (store->m_toast && store->m_toast->id == id)
        store->set(store->m_toast, std::optional<Toast>(), &AppStore::toastChanged);
}

} // namespace pingwell
