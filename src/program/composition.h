#pragma once

#include "desktop/single_instance.h"
#include "program/launch_options.h"
#include "program/pingwell_app.h"

#include <QStringList>

#include <memory>

/// Connects the program's interfaces to this system's implementations. No other file names an implementation.
namespace pingwell {

/// Decides whether this process or an earlier one runs the program; null in the modes that run beside others. Needs an
/// application object, but none with a display.
[[nodiscard]] std::unique_ptr<SingleInstance> makeSingleInstance(const LaunchOptions &options);

/// The arguments that are URLs of the program's own scheme; the desktop passes the redirect of a sign-in in one.
[[nodiscard]] QList<QUrl> ownURLs(const QStringList &arguments);

/// Makes the whole program. `singleInstance` outlives it and may be null.
[[nodiscard]] std::unique_ptr<PingwellApp> makeApp(const LaunchOptions &options, SingleInstance *singleInstance);

} // namespace pingwell
