#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "desktop/preference_keys.h"
#include "store/mutation_steps.h"
#include "store/record_field.h"

#include <algorithm>

namespace pingwell {

namespace {

template<typename Value>
FieldChange changeOf(const QString &key, Value NotificationSettings::*member, const NotificationSettings &after)
{
    RecordField field{
        .name = key, .changed = &AppStore::settingsChanged, .tell = [](APIClientPtr client, const JSONObject &changes) {
            return consentOf(endpoints::saveSettings(client, changes));
        }};
    bindField(
        field, [](const Records &records) { return &records.settings; }, member);
    return {field, wireValue(after.*member)};
}

/// What the service is to be told; whether quiet hours are on at all is not its business.
QList<FieldChange> keptByTheService(const NotificationSettings &after)
{
    return {changeOf(QStringLiteral("quietFrom"), &NotificationSettings::quietFrom, after),
            changeOf(QStringLiteral("quietTo"), &NotificationSettings::quietTo, after),
            changeOf(QStringLiteral("digest"), &NotificationSettings::digest, after),
            changeOf(QStringLiteral("sound"), &NotificationSettings::sound, after)};
}

} // namespace

/// What follows the service's answers about the person's own things.
struct AppStore::AccountSteps
{
    static void putBackDevice(AppStore &store, qsizetype index, const Device &device);
    static QCoro::Task<> runDeleteAccount(QPointer<AppStore> store, APIClientPtr client,
                                          std::shared_ptr<const void> work);
};

void AppStore::updateSettings(const std::function<void(NotificationSettings &)> &change)
{
    checkMainThread();
    const bool wereQuiet = m_settings.quietHoursEnabled;
    NotificationSettings after = m_settings;
    change(after);
    changeFields(QStringLiteral("settings"), keptByTheService(after), true);
    set(m_settings, after, &AppStore::settingsChanged);
    if (after.quietHoursEnabled == wereQuiet || !m_defaults)
        return;
    m_defaults->setBoolean(preference_keys::quietHoursEnabled, after.quietHoursEnabled);
    tellIfForgotten();
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
    mutate({.operation =
                [deviceID](APIClientPtr client) { return consentOf(endpoints::unregisterDevice(client, deviceID)); },
            .rollback = [removed = *found, index = found - before.begin()](
                            AppStore &store) { AccountSteps::putBackDevice(store, index, removed); }});
}

void AppStore::AccountSteps::putBackDevice(AppStore &store, qsizetype index, const Device &device)
{
    QList<Device> devices = store.m_devices;
    if (std::any_of(devices.begin(), devices.end(), [&device](const Device &other) { return other.id == device.id; }))
        return;
    devices.insert(std::min(index, devices.size()), device);
    store.set(store.m_devices, devices, &AppStore::devicesChanged);
}

void AppStore::deleteAccount()
{
    checkMainThread();
    if (m_client)
        launch("account deletion", AccountSteps::runDeleteAccount(this, m_client, m_unfinishedWork.begin()));
}

QCoro::Task<> AppStore::AccountSteps::runDeleteAccount(QPointer<AppStore> store, APIClientPtr client,
                                                       [[maybe_unused]] std::shared_ptr<const void> work)
{
    const Outcome<std::optional<QString>> outcome = co_await endpoints::deleteAccount(client);
    if (!store || store->m_client != client)
        co_return;
    if (outcome.error()) {
        store->tellFailure(*outcome.error());
        co_return;
    }
    if (store->m_defaults)
        store->m_defaults->remove(preference_keys::device(client->baseURL()));
    store->endSession(outcome.value()->value_or(QStringLiteral("Your account has been deleted.")));
}

} // namespace pingwell
