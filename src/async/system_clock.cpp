#include "async/system_clock.h"

#include "async/sleep.h"

namespace pingwell {

Instant SystemClock::now() const
{
    return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now());
}

QCoro::Task<> SystemClock::sleep(std::chrono::milliseconds duration, std::stop_token stop)
{
    Sleep pause(duration, stop);
    co_await pause;
}

} // namespace pingwell
