#pragma once

#include "model/instant.h"

#include <QCoroTask>

#include <chrono>
#include <stop_token>

namespace pingwell {

/// The time, and waiting for it. Tests use a clock that stands still until they advance it. Main thread.
class Clock
{
public:
    virtual ~Clock() = default;

    /// The computer's wall clock. It may be wrong, and anybody may set it.
    [[nodiscard]] virtual Instant now() const = 0;

    /// Monotonic time since a fixed moment before the program's start. Nobody can set it, and it goes on while the
    /// computer sleeps.
    [[nodiscard]] virtual Seconds uptime() const = 0;

    /// Resumes after `duration` of monotonic time, or as soon as `stop` is requested; the caller checks the stop token
    /// to see which.
    virtual QCoro::Task<> sleep(std::chrono::milliseconds duration, std::stop_token stop) = 0;
};

} // namespace pingwell
