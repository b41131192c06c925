#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <chrono>
#include <coroutine>
#include <memory>

namespace pingwell {

/// One method call on a bus, sent by the constructor. Awaiting it returns the reply, or an error no later than `limit`
/// after the call was sent. Copies share one call. Main thread.
class BusCall
{
public:
    BusCall(const QDBusConnection &bus, const QDBusMessage &call, std::chrono::milliseconds limit);

    [[nodiscard]] bool await_ready() const;
    void await_suspend(std::coroutine_handle<> awaiting);
    [[nodiscard]] QDBusMessage await_resume() const;

private:
    std::shared_ptr<QDBusPendingCallWatcher> m_watcher;
};

} // namespace pingwell
