#pragma once

#include "async/clock.h"

namespace pingwell {

/// The computer's clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
    [[nodiscard]] Seconds uptime() const override;
    QCoro::Task<> sleep(std::chrono::milliseconds duration, std::stop_token stop) override;
};

} // namespace pingwell
