#include "linux/keyring/secret_service_start.h"

namespace pingwell {

using namespace std::chrono_literals;

namespace {

constexpr auto longestStart = 2min;

bool isAnswering(GDBusConnection *bus)
{
    const Deadline deadline;
    const Ref<GVariant> reply(
        g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                    "NameHasOwner", g_variant_new("(s)", "org.freedesktop.secrets"),
                                    G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, -1, deadline, nullptr));
    gboolean owned = FALSE;
    if (reply)
        g_variant_get(reply.get(), "(b)", &owned);
    return owned;
}

/// Asks the bus to start the service `name`; does nothing where the bus does not know it.
void start(GDBusConnection *bus, const char *name)
{
    const Deadline deadline;
    const Ref<GVariant> reply(g_dbus_connection_call_sync(
        bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "StartServiceByName",
        g_variant_new("(su)", name, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, deadline, nullptr));
}

/// Waits for `duration`; false as soon as `stop` is requested.
bool pause(std::chrono::milliseconds duration, const std::stop_token &stop)
{
    // They protect no data: only a wait on a condition variable can be interrupted by a stop token.
    std::mutex mutex;
    std::condition_variable_any changed;
    // cppcheck-suppress localMutex
    std::unique_lock lock(mutex);
    changed.wait_for(lock, stop, duration, [] { return false; });
    return !stop.stop_requested();
}

} // namespace

Ref<GDBusConnection> sessionBus(GCancellable *cancellable)
{
    Ref<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
    if (bus)
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return bus;
}

bool startSecretService(GDBusConnection *bus, const std::stop_token &stop)
{
    // KWallet has to be started by its own name; a call to the Secret Service does not start it.
    for (const char *name : {"org.freedesktop.secrets", "org.kde.kwalletd6", "org.kde.kwalletd5"}) {
        if (!isAnswering(bus) && !stop.stop_requested())
            start(bus, name);
    }
    const auto end = std::chrono::steady_clock::now() + longestStart;
    for (std::chrono::seconds wait(1); !isAnswering(bus); wait *= 2) {
        if (std::chrono::steady_clock::now() + wait > end || !pause(wait, stop))
            return false;
    }
    return true;
}

} // namespace pingwell
