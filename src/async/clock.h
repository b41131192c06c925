#pragma once

#include "model/instant.h"

#include <QCoroTask>

#include <chrono>
#include <stop_token>

namespace pingwell {

/// The time and the waiting for it; tests hand in one that stands still until they move it. Main thread.
class Clock
{
public:
    virtual ~Clock() = default;

    /// The computer's clock: anybody may set it, and it may be wrong.
    [[nodiscard]] virtual Instant now() const = 0;

    /// The time since some fixed moment before the start of the program. Nobody can set it, and it counts the
    /// computer's sleep.
    [[nodiscard]] virtual Seconds uptime() const = 0;

    /// Resumes after `duration` of monotonic time, or as soon as `stop` is requested; the caller asks the token which.
    virtual QCoro::Task<> sleep(std::chrono::milliseconds duration, std::stop_token stop) = 0;
};

} // namespace pingwell
