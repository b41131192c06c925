#include "async/system_clock.h"

#include "async/sleep.h"
#include "model/check.h"

#include <ctime>

namespace pingwell {

Instant SystemClock::now() const
{
    return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now());
}

Seconds SystemClock::uptime() const
{
    timespec time{};
    check(clock_gettime(CLOCK_BOOTTIME, &time) == 0, "the system has no clock that counts its sleep");
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

QCoro::Task<> SystemClock::sleep(std::chrono::milliseconds duration, std::stop_token stop)
{
    Sleep pause(duration, stop);
    co_await pause;
}

} // namespace pingwell
