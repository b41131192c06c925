#pragma once

#include "api/api_error.h"

#include <QCoroTask>

#include <optional>
#include <variant>

namespace pingwell {

/// How a task ended: with a value (void's is a monostate) or with an error of the service client.
template<typename Value>
struct Settled
{
    std::optional<std::conditional_t<std::is_void_v<Value>, std::monostate, Value>> value;
    std::optional<APIError> error;
};

template<typename Value>
QCoro::Task<Settled<Value>> settling(QCoro::Task<Value> task)
{
    Settled<Value> settled;
    try {
        if constexpr (std::is_void_v<Value>) {
            co_await task;
            settled.value.emplace();
        } else {
            Value value = co_await task;
            settled.value.emplace(std::move(value));
        }
    } catch (const APIError &error) {
        settled.error = error;
    }
    co_return settled;
}

/// Turns the event loop until the task has ended.
template<typename Value>
Settled<Value> settle(QCoro::Task<Value> task)
{
    return QCoro::waitFor(settling(std::move(task)));
}

} // namespace pingwell
