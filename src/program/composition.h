#pragma once

#include "desktop/single_instance.h"
#include "program/launch_options.h"
#include "program/pingwell_app.h"

#include <QStringList>

#include <memory>

/// Where the program's interfaces meet what this system has for them; nothing else names an implementation.
namespace pingwell {

/// The role of this start among those of the person's session; null in the modes that run beside others. Needs an
/// application object, but none with a display.
[[nodiscard]] std::unique_ptr<SingleInstance> makeSingleInstance(const LaunchOptions &options);

/// The program's own URLs among the arguments, by which the desktop answers a sign-in.
[[nodiscard]] QList<QUrl> ownURLs(const QStringList &arguments);

/// The whole program. `singleInstance` outlives it and may be null.
[[nodiscard]] std::unique_ptr<PingwellApp> makeApp(const LaunchOptions &options, SingleInstance *singleInstance);

} // namespace pingwell
