#include "demo/demo_data.h"

#include "demo/demo_parts.h"

namespace pingwell {

namespace {

QList<Device> devices(Instant now)
{
    return {
        {.id = QStringLiteral("d1"),
         .name = QStringLiteral("Pixel 9"),
         .platform = DevicePlatform::android,
         .version = QStringLiteral("1.8.2"),
         .lastSeen = now - Seconds(60)},
        {.id = QStringLiteral("d2"),
         .name = QStringLiteral("MacBook Pro"),
         .platform = DevicePlatform::macos,
         .version = QStringLiteral("1.8.0"),
         .lastSeen = now - Seconds(180)},
        {.id = QStringLiteral("d3"),
         .name = QStringLiteral("Work desktop"),
         .platform = DevicePlatform::linux_,
         .version = QStringLiteral("1.7.4"),
         .lastSeen = now - Seconds(180'000)},
    };
}

} // namespace

SeedData demoData(Instant now)
{
    return {
        .workspaces = demo::workspaces(),
        .members = demo::members(now),
        .alerts = demo::alerts(now),
        .topics = demo::topics(),
        .devices = devices(now),
        .settings = {.quietHoursEnabled = true,
                     .quietFrom = QStringLiteral("22:00"),
                     .quietTo = QStringLiteral("07:00"),
                     .digest = true,
                     .sound = true},
    };
}

} // namespace pingwell
