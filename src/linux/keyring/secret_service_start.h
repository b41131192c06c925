#pragma once

#include "linux/keyring/glib_call.h"

#include <stop_token>

namespace pingwell {

/// The session bus; none where there is none. GLib would end the program when the bus goes away; this is switched off.
[[nodiscard]] Ref<GDBusConnection> sessionBus(GCancellable *cancellable);

/// Starts a Secret Service that runs on demand, and waits up to two minutes for one that starts later than this
/// program, as at log-in. True when a service answers; false soon after `stop`.
[[nodiscard]] bool startSecretService(GDBusConnection *bus, const std::stop_token &stop);

} // namespace pingwell
