#include "store/app_store.h"

#include "desktop/preference_keys.h"

namespace pingwell {

void AppStore::startSync()
{
    checkMainThread();
    m_sync.start();
}

void AppStore::refresh()
{
    checkMainThread();
    m_sync.refresh();
}

void AppStore::reconnect()
{
    checkMainThread();
    m_sync.reconnect();
}

void AppStore::takeDashboard(FetchedDashboard fetched)
{
    if (!fetched.dashboard) {
        m_merge.apply(std::move(fetched));
        return;
    }
    fetched.dashboard->settings.quietHoursEnabled = settings().quietHoursEnabled;
    m_notifications.announceNew(*fetched.dashboard, alerts(), markOwner(account()), m_ticker.present(), now(),
                                hasLoaded());
    const QString plan = fetched.dashboard->plan;
    m_merge.apply(std::move(fetched));
    takePlan(plan);
    // There may be a deadline before the next tick.
    m_ticker.takeTime();
    announceLeftAsks();
}

void AppStore::takePlan(const QString &plan)
{
    if (!account() || account()->plan == plan)
        return;
    Account renewed = *account();
    renewed.plan = plan;
    renewAccount(renewed);
}

void AppStore::takeAccount(const Account &account)
{
    if (this->account() == account)
        return;
    // The plan that the dashboard told last may have gone with the old record.
    m_merge.forgetBody();
    renewAccount(account);
}

void AppStore::renewAccount(const Account &account)
{
    m_notifications.handOver(markOwner(this->account()), markOwner(account));
    setAccount(account);
    if (m_session)
        m_session->saveAccount(account);
}

QString AppStore::markOwner(const std::optional<Account> &account) const
{
    return account && m_client ? notificationMarkOwner(m_client->baseURL(), *account) : QString();
}

void AppStore::announceLeftAsks()
{
    const bool namesWorkspaces = workspaces().size() > 1;
    for (const Alert &alert : m_notifications.settleLeftAsks(markOwner(account()), alerts(), now()))
        m_notifications.announceAgain(alert, namesWorkspaces ? workspaceName(alert.workspaceId) : std::nullopt,
                                      canAnswer(alert));
}

QString AppStore::deviceIdentifier() const
{
    return m_client ? m_defaults->string(preference_keys::device(m_client->baseURL())).value_or(QString()) : QString();
}

void AppStore::takeDevice(const std::optional<Device> &device)
{
    const QString key = preference_keys::device(m_client->baseURL());
    if (!device) {
        m_defaults->remove(key);
        return;
    }
    m_defaults->setString(key, device->id);
    QList<Device> devices = this->devices();
    removeFrom(devices, device->id);
    m_merge.forgetBody();
    m_records.set(devices << *device);
}

} // namespace pingwell
