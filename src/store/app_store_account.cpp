#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "store/preference_keys.h"

#include <algorithm>

namespace pingwell {

namespace {

const QString quietFromKey = QStringLiteral("quietFrom");
const QString quietToKey = QStringLiteral("quietTo");
const QString digestKey = QStringLiteral("digest");
const QString soundKey = QStringLiteral("sound");

/// What the service is to be told; whether quiet hours are on at all is not its business.
JSONObject changedFields(const NotificationSettings &before, const NotificationSettings &after)
{
    JSONObject changes;
    if (after.quietFrom != before.quietFrom)
        changes.insert(quietFromKey, after.quietFrom);
    if (after.quietTo != before.quietTo)
        changes.insert(quietToKey, after.quietTo);
    if (after.digest != before.digest)
        changes.insert(digestKey, after.digest);
    if (after.sound != before.sound)
        changes.insert(soundKey, after.sound);
    return changes;
}

/// `settings` with the fields that were changed as they were `before`.
NotificationSettings restored(NotificationSettings settings, const NotificationSettings &before,
                              const JSONObject &changes)
{
    if (changes.contains(quietFromKey))
        settings.quietFrom = before.quietFrom;
    if (changes.contains(quietToKey))
        settings.quietTo = before.quietTo;
    if (changes.contains(digestKey))
        settings.digest = before.digest;
    if (changes.contains(soundKey))
        settings.sound = before.sound;
    return settings;
}

/// The settings call, for its success or failure alone: the next refresh brings them as the service holds them.
QCoro::Task<> sendSettings(APIClientPtr client, JSONObject changes)
{
    co_await endpoints::saveSettings(client, changes);
}

} // namespace

/// What follows the service's answers about the person's own things.
struct AppStore::AccountSteps
{
    static void putBackDevice(AppStore &store, qsizetype index, const Device &device);
    static QCoro::Task<> performRemoveDevice(QPointer<AppStore> store, APIClientPtr client, QString deviceID);
    static QCoro::Task<> runDeleteAccount(QPointer<AppStore> store, APIClientPtr client);
};

void AppStore::updateSettings(const std::function<void(NotificationSettings &)> &change)
{
    checkMainThread();
    const NotificationSettings before = m_settings;
    NotificationSettings after = before;
    change(after);
    set(m_settings, after, &AppStore::settingsChanged);
    if (after.quietHoursEnabled != before.quietHoursEnabled && m_defaults) {
        m_defaults->setBoolean(preference_keys::quietHoursEnabled, after.quietHoursEnabled);
        tellIfForgotten();
    }
    const JSONObject changes = changedFields(before, after);
    if (changes.isEmpty())
        return;
    mutateInOrder(
        QStringLiteral("settings"),
        [before, changes](AppStore &store) {
            store.set(store.m_settings, restored(store.m_settings, before, changes), &AppStore::settingsChanged);
        },
        [changes](APIClientPtr client) { return sendSettings(client, changes); });
}

void AppStore::removeDevice(const QString &deviceID)
{
    checkMainThread();
    const QList<Device> before = m_devices;
    const auto found =
        std::find_if(before.begin(), before.end(), [&deviceID](const Device &device) { return device.id == deviceID; });
    if (found == before.end() || deviceID == deviceIdentifier())
        return;
    QList<Device> left = before;
    left.remove(found - before.begin());
    set(m_devices, left, &AppStore::devicesChanged);
    mutate([removed = *found,
            index = found - before.begin()](AppStore &store) { AccountSteps::putBackDevice(store, index, removed); },
           [store = QPointer(this), deviceID](APIClientPtr client) {
               return AccountSteps::performRemoveDevice(store, client, deviceID);
           });
}

void AppStore::AccountSteps::putBackDevice(AppStore &store, qsizetype index, const Device &device)
{
    QList<Device> devices = store.m_devices;
    if (std::any_of(devices.begin(), devices.end(), [&device](const Device &other) { return other.id == device.id; }))
        return;
    devices.insert(std::min(index, devices.size()), device);
    store.set(store.m_devices, devices, &AppStore::devicesChanged);
}

QCoro::Task<> AppStore::AccountSteps::performRemoveDevice(QPointer<AppStore> store, APIClientPtr client,
                                                          QString deviceID)
{
    const std::optional<QString> message = co_await endpoints::unregisterDevice(client, deviceID);
    tellReply(store, client, message);
}

void AppStore::deleteAccount()
{
    checkMainThread();
    if (m_client)
        launch("account deletion", AccountSteps::runDeleteAccount(this, m_client));
}

QCoro::Task<> AppStore::AccountSteps::runDeleteAccount(QPointer<AppStore> store, APIClientPtr client)
{
    std::optional<QString> message;
    std::optional<APIError> failure;
    try {
        message = co_await endpoints::deleteAccount(client);
    } catch (...) {
        failure = APIError::from(std::current_exception());
    }
    if (!store || store->m_client != client)
        co_return;
    if (failure) {
        store->tellFailure(*failure);
        co_return;
    }
    if (store->m_defaults)
        store->m_defaults->remove(preference_keys::device(client->baseURL()));
    store->endSession(message.value_or(QStringLiteral("Your account has been deleted.")));
}

} // namespace pingwell
