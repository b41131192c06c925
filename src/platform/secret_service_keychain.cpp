// GLib names things "signals" and "slots", so this file is compiled with QT_NO_KEYWORDS.
#include "platform/secret_service_keychain.h"

#include <libsecret/secret.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace pingwell {

using namespace std::chrono_literals;

namespace {

constexpr auto longestCall = 10s;
constexpr auto longestStart = 2min;

struct Unref
{
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(GHashTable *table) const { g_hash_table_unref(table); }
    void operator()(SecretValue *value) const { secret_value_unref(value); }
    void operator()(GVariant *value) const { g_variant_unref(value); }
};

template<typename Type>
using Ref = std::unique_ptr<Type, Unref>;

/// Receives the error of one GLib call.
class Error
{
public:
    Error() = default;
    ~Error() { g_clear_error(&m_error); }
    Q_DISABLE_COPY_MOVE(Error)

    /// Where the call puts it.
    [[nodiscard]] GError **place() { return &m_error; }
    [[nodiscard]] bool isSet() const { return m_error != nullptr; }
    [[nodiscard]] KeychainStatus status() const
    {
        const bool locked = g_error_matches(m_error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED);
        return locked ? KeychainStatus::locked : KeychainStatus::unavailable;
    }

private:
    GError *m_error = nullptr;
};

/// Cancels the calls it is handed to once they have taken too long: a service that hangs must not hang the caller.
class Deadline
{
public:
    explicit Deadline(std::chrono::milliseconds longest)
        : m_watch([this, longest](const std::stop_token &done) {
            std::unique_lock lock(m_mutex);
            if (!m_changed.wait_for(lock, done, longest, [&done] { return done.stop_requested(); }))
                g_cancellable_cancel(m_cancellable.get());
        })
    {
    }

    operator GCancellable *() const { return m_cancellable.get(); }

private:
    Ref<GCancellable> m_cancellable{g_cancellable_new()};
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    // Last: it uses the others until it ends.
    std::jthread m_watch;
};

/// Keeps what GLib delivers during a call on the calling thread: its default context may be the one the main thread
/// runs.
class Delivery
{
public:
    explicit Delivery(GMainContext *context)
        : m_context(context)
    {
        g_main_context_push_thread_default(m_context);
        while (g_main_context_iteration(m_context, FALSE)) {
        }
    }
    ~Delivery() { g_main_context_pop_thread_default(m_context); }
    Q_DISABLE_COPY_MOVE(Delivery)

private:
    GMainContext *m_context;
};

/// Items are found by their attributes alone, whatever schema the service recorded with them.
const SecretSchema *schema()
{
    static const SecretSchema instance = [] {
        SecretSchema made{};
        made.name = "com.pingwell.mac.session";
        made.flags = SECRET_SCHEMA_DONT_MATCH_NAME;
        made.attributes[0] = {"service", SECRET_SCHEMA_ATTRIBUTE_STRING};
        made.attributes[1] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
        return made;
    }();
    return &instance;
}

Ref<GHashTable> attributesOf(const QString &service, const QString &account)
{
    return Ref<GHashTable>(secret_attributes_build(schema(), "service", qUtf8Printable(service), "account",
                                                   qUtf8Printable(account), nullptr));
}

/// The session bus; it may close without ending the program, which GLib would otherwise do.
Ref<GDBusConnection> sessionBus(GCancellable *cancellable)
{
    Ref<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
    if (bus)
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return bus;
}

bool isAnswering(GDBusConnection *bus)
{
    const Deadline deadline(longestCall);
    const Ref<GVariant> reply(
        g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                    "NameHasOwner", g_variant_new("(s)", "org.freedesktop.secrets"),
                                    G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, -1, deadline, nullptr));
    gboolean owned = FALSE;
    if (reply)
        g_variant_get(reply.get(), "(b)", &owned);
    return owned;
}

/// Asks the bus to start `name`, where it knows how to.
void start(GDBusConnection *bus, const char *name)
{
    const Deadline deadline(longestCall);
    const Ref<GVariant> reply(g_dbus_connection_call_sync(
        bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "StartServiceByName",
        g_variant_new("(su)", name, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, deadline, nullptr));
}

/// Waits for `duration`; false as soon as `stop` is requested.
bool pause(std::chrono::milliseconds duration, const std::stop_token &stop)
{
    std::mutex mutex;
    std::condition_variable_any changed;
    std::unique_lock lock(mutex);
    changed.wait_for(lock, stop, duration, [] { return false; });
    return !stop.stop_requested();
}

/// Waits for a service that comes up later than this program, as at login. KWallet is one that no call starts.
KeychainStatus waitUntilAnswering(GDBusConnection *bus, const std::stop_token &stop)
{
    for (const char *name : {"org.freedesktop.secrets", "org.kde.kwalletd6", "org.kde.kwalletd5"}) {
        if (!isAnswering(bus) && !stop.stop_requested())
            start(bus, name);
    }
    const auto end = std::chrono::steady_clock::now() + longestStart;
    for (auto wait = 1s; !isAnswering(bus); wait *= 2) {
        if (std::chrono::steady_clock::now() + wait > end || !pause(wait, stop))
            return KeychainStatus::unavailable;
    }
    return KeychainStatus::success;
}

} // namespace

struct SecretServiceKeychain::State
{
    /// The items with these attributes, locked ones too, with the secrets of the others; never asks the person.
    std::optional<std::vector<Ref<SecretItem>>> search(const QString &service, const QString &account);
    KeychainStatus unlockCollection(GCancellable *cancellable);
    KeychainStatus unlockItems(GCancellable *cancellable);
    KeychainStatus noteFailure(const Error &error);

    // Before what is delivered through it.
    Ref<GMainContext> context{g_main_context_new()};
    Ref<SecretService> secretService;
    std::vector<Ref<SecretItem>> lockedItems;
    bool answered = false;

    /// The service as it runs now; it is asked for anew after a failure, because it may have been restarted.
    SecretService *service(GCancellable *cancellable)
    {
        if (!secretService && sessionBus(cancellable))
            secretService.reset(
                secret_service_open_sync(SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_NONE, cancellable, nullptr));
        return secretService.get();
    }
};

KeychainStatus SecretServiceKeychain::State::noteFailure(const Error &error)
{
    const KeychainStatus status = error.status();
    if (status == KeychainStatus::unavailable) {
        secretService.reset();
        lockedItems.clear();
        answered = false;
    }
    return status;
}

std::optional<std::vector<Ref<SecretItem>>> SecretServiceKeychain::State::search(const QString &service,
                                                                                 const QString &account)
{
    const Deadline deadline(longestCall);
    const Ref<GHashTable> attributes = attributesOf(service, account);
    const auto flags = SecretSearchFlags(SECRET_SEARCH_ALL | SECRET_SEARCH_LOAD_SECRETS);
    lockedItems.clear();
    Error error;
    GList *found = nullptr;
    if (SecretService *const secrets = this->service(deadline))
        found = secret_service_search_sync(secrets, schema(), attributes.get(), flags, deadline, error.place());
    if (error.isSet() || !secretService) {
        noteFailure(error);
        return std::nullopt;
    }
    answered = true;
    std::vector<Ref<SecretItem>> items;
    for (const GList *node = found; node; node = node->next) {
        Ref<SecretItem> item(static_cast<SecretItem *>(node->data));
        (secret_item_get_locked(item.get()) ? lockedItems : items).push_back(std::move(item));
    }
    g_list_free(found);
    return items;
}

SecretServiceKeychain::SecretServiceKeychain()
    : m_state(std::make_unique<State>())
{
}

SecretServiceKeychain::~SecretServiceKeychain()
{
    // What they leave behind is cleaned up through the context.
    m_state->lockedItems.clear();
    m_state->secretService.reset();
    const Delivery delivery(m_state->context.get());
}

KeychainItem SecretServiceKeychain::copyMatching(const QString &service, const QString &account)
{
    const Delivery delivery(m_state->context.get());
    const auto items = m_state->search(service, account);
    if (!items)
        return {.status = KeychainStatus::unavailable, .data = {}};
    for (const Ref<SecretItem> &item : *items) {
        const Ref<SecretValue> value(secret_item_get_secret(item.get()));
        if (!value)
            continue;
        gsize length = 0;
        const gchar *const bytes = secret_value_get(value.get(), &length);
        return {.status = KeychainStatus::success, .data = QByteArray(bytes, qsizetype(length))};
    }
    if (!m_state->lockedItems.empty())
        return {.status = KeychainStatus::locked, .data = {}};
    // An open item that does not hand its secret out is no proof of absence.
    return {.status = items->empty() ? KeychainStatus::itemNotFound : KeychainStatus::unavailable, .data = {}};
}

KeychainStatus SecretServiceKeychain::store(const QString &service, const QString &account, const QByteArray &data)
{
    const Delivery delivery(m_state->context.get());
    const Deadline deadline(longestCall);
    SecretService *const secrets = m_state->service(deadline);
    if (!secrets)
        return KeychainStatus::unavailable;
    Error error;
    // Storing where there is no default collection would ask the person to make one, which is unlock's part.
    const Ref<SecretCollection> collection(secret_collection_for_alias_sync(
        secrets, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE, deadline, error.place()));
    if (error.isSet())
        return m_state->noteFailure(error);
    m_state->answered = true;
    if (!collection || secret_collection_get_locked(collection.get()))
        return KeychainStatus::locked;
    const Ref<GHashTable> attributes = attributesOf(service, account);
    const Ref<SecretValue> value(secret_value_new(data.constData(), data.size(), "text/plain"));
    secret_service_store_sync(secrets, schema(), attributes.get(), SECRET_COLLECTION_DEFAULT, "Pingwell session",
                              value.get(), deadline, error.place());
    return error.isSet() ? m_state->noteFailure(error) : KeychainStatus::success;
}

KeychainStatus SecretServiceKeychain::remove(const QString &service, const QString &account)
{
    const Delivery delivery(m_state->context.get());
    const auto items = m_state->search(service, account);
    if (!items)
        return KeychainStatus::unavailable;
    const Deadline deadline(longestCall);
    for (const Ref<SecretItem> &item : *items) {
        Error error;
        secret_item_delete_sync(item.get(), deadline, error.place());
        if (error.isSet())
            return m_state->noteFailure(error);
    }
    if (!m_state->lockedItems.empty())
        return KeychainStatus::locked;
    return items->empty() ? KeychainStatus::itemNotFound : KeychainStatus::success;
}

KeychainStatus SecretServiceKeychain::unlock(std::stop_token stop)
{
    const Delivery delivery(m_state->context.get());
    const Ref<GCancellable> cancellable(g_cancellable_new());
    const std::stop_callback cancel(stop, [&cancellable] { g_cancellable_cancel(cancellable.get()); });
    const Ref<GDBusConnection> bus = sessionBus(cancellable.get());
    if (!bus)
        return KeychainStatus::unavailable;
    if (!m_state->answered)
        return waitUntilAnswering(bus.get(), stop);
    if (!m_state->lockedItems.empty())
        return m_state->unlockItems(cancellable.get());
    return m_state->unlockCollection(cancellable.get());
}

KeychainStatus SecretServiceKeychain::State::unlockItems(GCancellable *cancellable)
{
    GList *items = nullptr;
    for (const Ref<SecretItem> &item : lockedItems)
        items = g_list_prepend(items, item.get());
    Error error;
    const gint opened = secret_service_unlock_sync(service(cancellable), items, cancellable, nullptr, error.place());
    g_list_free(items);
    if (error.isSet())
        return noteFailure(error);
    return opened > 0 ? KeychainStatus::success : KeychainStatus::locked;
}

KeychainStatus SecretServiceKeychain::State::unlockCollection(GCancellable *cancellable)
{
    SecretService *const secrets = service(cancellable);
    if (!secrets)
        return KeychainStatus::unavailable;
    Error error;
    const Ref<SecretCollection> collection(secret_collection_for_alias_sync(
        secrets, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE, cancellable, error.place()));
    if (error.isSet())
        return noteFailure(error);
    if (!collection) {
        const Ref<SecretCollection> made(
            secret_collection_create_sync(secrets, "Default keyring", SECRET_COLLECTION_DEFAULT,
                                          SECRET_COLLECTION_CREATE_NONE, cancellable, error.place()));
        return made ? KeychainStatus::success : noteFailure(error);
    }
    if (!secret_collection_get_locked(collection.get()))
        return KeychainStatus::success;
    GList only{collection.get(), nullptr, nullptr};
    const gint opened = secret_service_unlock_sync(secrets, &only, cancellable, nullptr, error.place());
    if (error.isSet())
        return noteFailure(error);
    return opened > 0 ? KeychainStatus::success : KeychainStatus::locked;
}

} // namespace pingwell
