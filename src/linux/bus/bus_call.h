#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <chrono>
#include <coroutine>
#include <memory>

namespace pingwell {

/// One method call on a bus, sent at once; awaiting it gives the reply, or the error in its place, no later than
/// `limit` after it was sent. Copies are the same call. Main thread.
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
