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

    [[nodiscard]] virtual Instant now() const = 0;

    /// Resumes after `duration` of monotonic time, or as soon as `stop` is requested; the caller asks the token which.
    virtual QCoro::Task<> sleep(std::chrono::milliseconds duration, std::stop_token stop) = 0;
};

} // namespace pingwell
