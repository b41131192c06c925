#include "store/app_store.h"

#include "async/launch.h"
#include "model/check.h"
#include "store/preference_keys.h"

#include <QThread>

namespace pingwell {

using namespace std::chrono_literals;

AppStore::AppStore(SeedData seed, bool signedIn, std::shared_ptr<Preferences> defaults, Instant now,
                   std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, QObject *parent)
    : QObject(parent)
    , m_seed(std::move(seed))
    , m_defaults(std::move(defaults))
    , m_backend(std::move(backend))
    , m_clock(std::move(clock))
    , m_now(now)
    , m_hasLoaded(m_backend == nullptr)
{
    connect(this, &AppStore::alertsChanged, this, &AppStore::unreadCountChanged);
    connect(this, &AppStore::activeWorkspaceIDChanged, this, &AppStore::unreadCountChanged);
    fillFromSeed();
    if (m_defaults) {
        const QStringList unread = m_defaults->strings(preference_keys::unreadAlerts).value_or(QStringList());
        m_unreadOverrides = QSet<QString>(unread.begin(), unread.end());
        restoreServerChoice();
    }
    if (m_backend) {
        check(m_backend->heartbeatEvery != 0 && m_backend->invitesEvery != 0, "a poll count of the backend is zero");
        watchTokenStore();
        restoreSession();
    } else {
        restoreDemoAccount(signedIn);
    }
}

AppStore::~AppStore()
{
    m_clockTask.request_stop();
    m_syncTask.request_stop();
    m_toastTask.request_stop();
    m_providersTask.request_stop();
    if (m_backend && m_backend->tokenStore) {
        m_backend->tokenStore->onBecameReadable = nullptr;
        m_backend->tokenStore->onNotKept = nullptr;
    }
}

void AppStore::checkMainThread() const
{
    check(QThread::currentThread() == thread(), "the store was called from another thread than its own");
}

void AppStore::fillFromSeed()
{
    set(m_alerts, m_seed.alerts, &AppStore::alertsChanged);
    set(m_topics, m_seed.topics, &AppStore::topicsChanged);
    set(m_devices, m_seed.devices, &AppStore::devicesChanged);
    set(m_settings, m_seed.settings, &AppStore::settingsChanged);
    set(m_workspaces, m_seed.workspaces, &AppStore::workspacesChanged);
    set(m_members, m_seed.members, &AppStore::membersChanged);
    m_plan = m_seed.plan;
    const QString first = m_workspaces.isEmpty() ? QString() : m_workspaces.first().id;
    set(m_activeWorkspaceID, first, &AppStore::activeWorkspaceIDChanged);
}

void AppStore::restoreServerChoice()
{
    const QString kind = m_defaults->string(preference_keys::serverKind).value_or(QString());
    m_server = fromRawValue<ServerKind>(kind).value_or(ServerKind::cloud);
    m_selfHostedURL = m_defaults->string(preference_keys::selfHostedURL).value_or(QString());
}

void AppStore::restoreDemoAccount(bool signedIn)
{
    if (!m_defaults) {
        if (signedIn)
            m_account = demoAccount(AuthProvider::google);
        return;
    }
    const QString word = m_defaults->string(preference_keys::sessionProvider).value_or(QString());
    if (const auto provider = fromRawValue<AuthProvider>(word))
        m_account = demoAccount(*provider);
    restoreDemoWorkspaces();
}

void AppStore::restoreDemoWorkspaces()
{
    const auto active = m_defaults->string(preference_keys::activeWorkspace);
    if (active && workspaceWithID(*active))
        set(m_activeWorkspaceID, *active, &AppStore::activeWorkspaceIDChanged);
    QList<Workspace> workspaces = m_workspaces;
    for (Workspace &workspace : workspaces) {
        const double minutes = m_defaults->number(preference_keys::responseTimeoutMinutes(workspace.id)).value_or(0);
        for (const std::int64_t honoured : {5, 15, 30, 60}) {
            if (minutes == static_cast<double>(honoured))
                workspace.responseTimeoutMinutes = honoured;
        }
        const QString word = m_defaults->string(preference_keys::timeoutAction(workspace.id)).value_or(QString());
        const auto action = fromRawValue<TimeoutAction>(word);
        if (action && isAllowed(*action, workspace.kind))
            workspace.timeoutAction = *action;
    }
    set(m_workspaces, workspaces, &AppStore::workspacesChanged);
}

void AppStore::startClock()
{
    checkMainThread();
    m_clockTask.request_stop();
    m_clockTask = std::stop_source();
    launch("clock", runClock(this, m_clock, m_clockTask.get_token()));
}

QCoro::Task<> AppStore::runClock(QPointer<AppStore> store, std::shared_ptr<Clock> clock, std::stop_token stop)
{
    while (true) {
        const auto second = 1000ms;
        co_await clock->sleep(second, stop);
        if (stop.stop_requested() || !store)
            co_return;
        store->set(store->m_now, clock->now(), &AppStore::nowChanged);
    }
}

void AppStore::showToast(const QString &message, bool isError)
{
    checkMainThread();
    if (message.isEmpty())
        return;
    const Toast toast{.message = message, .isError = isError};
    m_toast = toast;
    emit toastChanged();
    m_toastTask.request_stop();
    m_toastTask = std::stop_source();
    const auto shown = isError ? 6000ms : 3500ms;
    launch("toast", hideToastLater(this, m_clock, toast.id, shown, m_toastTask.get_token()));
}

QCoro::Task<> AppStore::hideToastLater(QPointer<AppStore> store, std::shared_ptr<Clock> clock, QUuid id,
                                       std::chrono::milliseconds after, std::stop_token stop)
{
    co_await clock->sleep(after, stop);
    if (stop.stop_requested() || !store)
        co_return;
    if (store->m_toast && store->m_toast->id == id)
        store->set(store->m_toast, std::optional<Toast>(), &AppStore::toastChanged);
}

} // namespace pingwell
