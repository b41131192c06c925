#include "linux/bus/bus_call.h"

#include <QDBusPendingCall>

namespace pingwell {

BusCall::BusCall(const QDBusConnection &bus, const QDBusMessage &call, std::chrono::milliseconds limit)
    // Deleted later: the coroutine may end and release the watcher while the watcher is emitting `finished`.
    : m_watcher(new QDBusPendingCallWatcher(bus.asyncCall(call, static_cast<int>(limit.count()))),
                [](QDBusPendingCallWatcher *watcher) { watcher->deleteLater(); })
{
}

bool BusCall::await_ready() const
{
    return m_watcher->isFinished();
}

void BusCall::await_suspend(std::coroutine_handle<> awaiting)
{
    // `finished` is emitted from the event loop, so a reply that arrived after await_ready is not missed.
    QObject::connect(m_watcher.get(), &QDBusPendingCallWatcher::finished, m_watcher.get(),
                     [awaiting] { awaiting.resume(); });
}

QDBusMessage BusCall::await_resume() const
{
    return m_watcher->reply();
}

} // namespace pingwell
