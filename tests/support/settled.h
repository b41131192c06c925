#pragma once

#include "api/api_error.h"

#include <QCoroTask>
#include <QEventLoop>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <variant>

namespace pingwell {

/// How a task ended: with a value, with an error of the service client, or (neither) not within five seconds.
template<typename Value>
struct Settled
{
    std::optional<Value> value;
    std::optional<APIError> error;
};

/// `Value` stands in for void.
template<typename Value>
using SettledAs = std::conditional_t<std::is_void_v<Value>, std::monostate, Value>;

template<typename Value>
QCoro::Task<> settleInto(std::shared_ptr<Settled<SettledAs<Value>>> settled, QPointer<QEventLoop> loop,
                         QCoro::Task<Value> task)
{
    try {
        if constexpr (std::is_void_v<Value>) {
            co_await task;
            settled->value.emplace();
        } else {
            Value value = co_await task;
            settled->value.emplace(std::move(value));
        }
    } catch (const APIError &error) {
        settled->error = error;
    }
    // Not at once: the task may have ended before the loop began.
    if (loop)
        QMetaObject::invokeMethod(loop, &QEventLoop::quit, Qt::QueuedConnection);
}

/// Turns the event loop until the task has ended.
template<typename Value>
Settled<SettledAs<Value>> settle(QCoro::Task<Value> task)
{
    const auto settled = std::make_shared<Settled<SettledAs<Value>>>();
    QEventLoop loop;
    settleInto<Value>(settled, &loop, std::move(task));
    QTimer::singleShot(std::chrono::seconds(5), &loop, &QEventLoop::quit);
    loop.exec();
    if (!settled->value && !settled->error)
        QTest::qFail("the task did not end in time", __FILE__, __LINE__);
    return *settled;
}

} // namespace pingwell
