// GLib uses "signals" and "slots" as names, so this file is compiled with QT_NO_KEYWORDS.
#include "linux/keyring/secret_service_keychain.h"

#include "linux/keyring/glib_call.h"
#include "linux/keyring/secret_service_start.h"

#include <libsecret/secret.h>

#include <optional>
#include <vector>

namespace pingwell {

namespace {

struct UnrefSecret
{
    void operator()(SecretValue *value) const { secret_value_unref(value); }
};

using SecretRef = std::unique_ptr<SecretValue, UnrefSecret>;

KeychainStatus statusOf(const GLibError &error)
{
    return error.is(SECRET_ERROR, SECRET_ERROR_IS_LOCKED) ? KeychainStatus::locked : KeychainStatus::unavailable;
}

/// A schema that matches items by their attributes only, whatever schema the service stored with them.
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

} // namespace

struct SecretServiceKeychain::State
{
    /// The items with these attributes, including locked ones; unlocked ones have their secrets. Never asks the person.
    std::optional<std::vector<Ref<SecretItem>>> search(const QString &service, const QString &account);
    KeychainStatus unlockCollection(GCancellable *cancellable);
    KeychainStatus unlockItems(GCancellable *cancellable);
    KeychainStatus noteFailure(const GLibError &error);
    KeychainItem read(const QString &service, const QString &account);
    KeychainStatus write(const QString &service, const QString &account, const QByteArray &data);
    /// A Secret Service that was restarted does not know the session over which secrets are sent: it returns items
    /// without secrets and stores none. After this function the next call opens a session with the service that runs
    /// now.
    void forgetService();

    // Declared before the objects whose events it delivers.
    Ref<GMainContext> context{g_main_context_new()};
    Ref<SecretService> secretService;
    std::vector<Ref<SecretItem>> lockedItems;
    bool answered = false;

    /// The running service. After a failure it is looked up again, because it may have been restarted.
    SecretService *service(GCancellable *cancellable)
    {
        if (!secretService && sessionBus(cancellable))
            secretService.reset(
                secret_service_open_sync(SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_NONE, cancellable, nullptr));
        return secretService.get();
    }
};

KeychainStatus SecretServiceKeychain::State::noteFailure(const GLibError &error)
{
    const KeychainStatus status = statusOf(error);
    if (status == KeychainStatus::unavailable)
        forgetService();
    return status;
}

void SecretServiceKeychain::State::forgetService()
{
    secretService.reset();
    lockedItems.clear();
    answered = false;
}

std::optional<std::vector<Ref<SecretItem>>> SecretServiceKeychain::State::search(const QString &service,
                                                                                 const QString &account)
{
    const Deadline deadline;
    const Ref<GHashTable> attributes = attributesOf(service, account);
    const auto flags = SecretSearchFlags(SECRET_SEARCH_ALL | SECRET_SEARCH_LOAD_SECRETS);
    lockedItems.clear();
    GLibError error;
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
    // Delivers the events with which these objects are cleaned up.
    m_state->lockedItems.clear();
    m_state->secretService.reset();
    const Delivery delivery(m_state->context.get());
}

KeychainItem SecretServiceKeychain::copyMatching(const QString &service, const QString &account)
{
    const Delivery delivery(m_state->context.get());
    const bool knewService = bool(m_state->secretService);
    KeychainItem item = m_state->read(service, account);
    if (item.status == KeychainStatus::unavailable && knewService) {
        m_state->forgetService();
        item = m_state->read(service, account);
    }
    return item;
}

KeychainItem SecretServiceKeychain::State::read(const QString &service, const QString &account)
{
    const auto items = search(service, account);
    if (!items)
        return {.status = KeychainStatus::unavailable, .data = {}};
    for (const Ref<SecretItem> &item : *items) {
        const SecretRef value(secret_item_get_secret(item.get()));
        if (!value)
            continue;
        gsize length = 0;
        const gchar *const bytes = secret_value_get(value.get(), &length);
        return {.status = KeychainStatus::success, .data = QByteArray(bytes, qsizetype(length))};
    }
    if (!lockedItems.empty())
        return {.status = KeychainStatus::locked, .data = {}};
    // An unlocked item without a secret does not prove that there is no token.
    return {.status = items->empty() ? KeychainStatus::itemNotFound : KeychainStatus::unavailable, .data = {}};
}

KeychainStatus SecretServiceKeychain::store(const QString &service, const QString &account, const QByteArray &data)
{
    const Delivery delivery(m_state->context.get());
    const bool knewService = bool(m_state->secretService);
    KeychainStatus status = m_state->write(service, account, data);
    if (status == KeychainStatus::unavailable && knewService) {
        m_state->forgetService();
        status = m_state->write(service, account, data);
    }
    return status;
}

KeychainStatus SecretServiceKeychain::State::write(const QString &service, const QString &account,
                                                   const QByteArray &data)
{
    const Deadline deadline;
    SecretService *const secrets = this->service(deadline);
    if (!secrets)
        return KeychainStatus::unavailable;
    GLibError error;
    // Storing without a default collection would open a dialog to create one; only `unlock` may ask the person.
    const Ref<SecretCollection> collection(secret_collection_for_alias_sync(
        secrets, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE, deadline, error.place()));
    if (error.isSet())
        return noteFailure(error);
    answered = true;
    if (!collection || secret_collection_get_locked(collection.get()))
        return KeychainStatus::locked;
    const Ref<GHashTable> attributes = attributesOf(service, account);
    const SecretRef value(secret_value_new(data.constData(), data.size(), "text/plain"));
    secret_service_store_sync(secrets, schema(), attributes.get(), SECRET_COLLECTION_DEFAULT, "Pingwell session",
                              value.get(), deadline, error.place());
    return error.isSet() ? noteFailure(error) : KeychainStatus::success;
}

KeychainStatus SecretServiceKeychain::remove(const QString &service, const QString &account)
{
    const Delivery delivery(m_state->context.get());
    const auto items = m_state->search(service, account);
    if (!items)
        return KeychainStatus::unavailable;
    const Deadline deadline;
    for (const Ref<SecretItem> &item : *items) {
        GLibError error;
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
        return startSecretService(bus.get(), stop) ? KeychainStatus::success : KeychainStatus::unavailable;
    if (!m_state->lockedItems.empty())
        return m_state->unlockItems(cancellable.get());
    return m_state->unlockCollection(cancellable.get());
}

KeychainStatus SecretServiceKeychain::State::unlockItems(GCancellable *cancellable)
{
    GList *items = nullptr;
    for (const Ref<SecretItem> &item : lockedItems)
        items = g_list_prepend(items, item.get());
    GLibError error;
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
    GLibError error;
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
