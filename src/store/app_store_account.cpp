#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "desktop/preference_keys.h"

namespace pingwell {

namespace {

template<typename Value>
FieldChange changeOf(const QString &key, Value NotificationSettings::*member, const NotificationSettings &after)
{
    RecordField field{
        .name = key, .changed = &Records::settingsChanged, .tell = [](APIClientPtr client, const JSONObject &changes) {
            return consentOf(endpoints::saveSettings(client, changes));
        }};
    bindField(
        field, [](const ChangeableRecords &records) { return &records.settings; }, member);
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

void AppStore::updateSettings(const std::function<void(NotificationSettings &)> &change)
{
    checkMainThread();
    const bool wereQuiet = settings().quietHoursEnabled;
    NotificationSettings after = settings();
    change(after);
    m_changes.change(QStringLiteral("settings"), keptByTheService(after), true);
    m_records.setSettings(after);
    if (after.quietHoursEnabled == wereQuiet)
        return;
    m_defaults->setBoolean(preference_keys::quietHoursEnabled, after.quietHoursEnabled);
    tellIfForgotten();
}

void AppStore::removeDevice(const QString &deviceID)
{
    checkMainThread();
    if (deviceID == deviceIdentifier())
        return;
    const auto removed = m_records.remove<Device>(deviceID);
    if (!removed)
        return;
    m_mutations.start(
        {.operation =
             [deviceID](APIClientPtr client) { return consentOf(endpoints::unregisterDevice(client, deviceID)); },
         .rollback = [this, removed = *removed] { m_records.putBack(removed); }});
}

void AppStore::deleteAccount()
{
    checkMainThread();
    if (m_client)
        launch("account deletion", runDeleteAccount(this, m_client, m_unfinishedWork.begin()));
}

QCoro::Task<> AppStore::runDeleteAccount(QPointer<AppStore> store, APIClientPtr client,
                                         [[maybe_unused]] std::shared_ptr<const void> work)
{
    const Outcome<std::optional<QString>> outcome = co_await endpoints::deleteAccount(client);
    if (!store || store->m_client != client)
        co_return;
    if (outcome.error()) {
        store->tellFailure(*outcome.error());
        co_return;
    }
    store->m_defaults->remove(preference_keys::device(client->baseURL()));
    store->endSession(outcome.value()->value_or(QStringLiteral("Your account has been deleted.")));
}

} // namespace pingwell
