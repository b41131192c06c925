#pragma once

#include "linux/keyring/glib_call.h"

#include <stop_token>

namespace pingwell {

/// The session bus, none where there is none. Its end does not end the program, as it would with GLib's own default.
[[nodiscard]] Ref<GDBusConnection> sessionBus(GCancellable *cancellable);

/// Starts a Secret Service that only runs on demand, and waits up to two minutes for one that comes up later than this
/// program, as at login. Whether one answers; false soon after `stop`.
[[nodiscard]] bool startSecretService(GDBusConnection *bus, const std::stop_token &stop);

} // namespace pingwell
