#pragma once

#include "api/outcome.h"

#include <QCoroTask>

#include <optional>

namespace pingwell {

template<typename Value>
QCoro::Task<std::optional<Outcome<Value>>> settling(QCoro::Task<Outcome<Value>> task)
{
    Outcome<Value> outcome = co_await std::move(task);
    co_return outcome;
}

/// Turns the event loop until the task has ended.
template<typename Value>
Outcome<Value> settle(QCoro::Task<Outcome<Value>> task)
{
    // What QCoro waits for needs a default.
    return *QCoro::waitFor(settling(std::move(task)));
}

} // namespace pingwell
