#include "store/app_store.h"

#include "async/launch.h"
#include "desktop/preference_keys.h"
#include "model/check.h"

#include <QThread>

#include <utility>

namespace pingwell {

using namespace std::chrono_literals;

/// What a store without a service remembers from its last run, and every one of its server.
struct AppStore::StartSteps
{
    static void restoreServerChoice(AppStore &store);
    static void restoreDemoAccount(AppStore &store, bool signedIn);
    static void restoreDemoWorkspaces(AppStore &store);
};

AppStore::AppStore(SeedData seed, bool signedIn, std::shared_ptr<Preferences> defaults, Instant now,
                   std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, QObject *parent)
    : QObject(parent)
    , m_seed(std::move(seed))
    , m_defaults(std::move(defaults))
    , m_backend(std::move(backend))
    , m_clock(std::move(clock))
    , m_now(now)
    , m_hasLoaded(m_backend == nullptr)
    , m_notificationMark(m_defaults)
    , m_unreadOverrides(m_defaults)
{
    connect(this, &AppStore::alertsChanged, this, &AppStore::unreadCountChanged);
    connect(this, &AppStore::activeWorkspaceIDChanged, this, &AppStore::unreadCountChanged);
    connect(this, &AppStore::alertsChanged, this, &AppStore::endNotifications);
    connect(this, &AppStore::nowChanged, this, [this] {
        if (m_waitingAsks.mayEndBy(m_now))
            endNotifications();
    });
    fillFromSeed();
    if (m_defaults)
        StartSteps::restoreServerChoice(*this);
    if (m_backend) {
        check(m_backend->heartbeatEvery != 0 && m_backend->invitesEvery != 0, "a poll count of the backend is zero");
        openStoredSession();
        findLeftAsks();
        restoreSession();
    } else {
        StartSteps::restoreDemoAccount(*this, signedIn);
    }
}

AppStore::~AppStore()
{
    m_clockTask.request_stop();
    m_syncTask.request_stop();
    m_toastTask.request_stop();
    m_providersTask.request_stop();
    m_signInTask.request_stop();
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
    const QString first = m_workspaces.isEmpty() ? QString() : m_workspaces.first().id;
    set(m_activeWorkspaceID, first, &AppStore::activeWorkspaceIDChanged);
}

void AppStore::StartSteps::restoreServerChoice(AppStore &store)
{
    const QString kind = store.m_defaults->string(preference_keys::serverKind).value_or(QString());
    store.m_server = fromRawValue<ServerKind>(kind).value_or(ServerKind::cloud);
    store.m_selfHostedURL = store.m_defaults->string(preference_keys::selfHostedURL).value_or(QString());
}

void AppStore::StartSteps::restoreDemoAccount(AppStore &store, bool signedIn)
{
    if (!store.m_defaults) {
        if (signedIn)
            store.m_account = demoAccount(AuthProvider::google);
        return;
    }
    const QString word = store.m_defaults->string(preference_keys::sessionProvider).value_or(QString());
    if (const auto provider = fromRawValue<AuthProvider>(word))
        store.m_account = demoAccount(*provider);
    restoreDemoWorkspaces(store);
}

void AppStore::StartSteps::restoreDemoWorkspaces(AppStore &store)
{
    const auto active = store.m_defaults->string(preference_keys::activeWorkspace);
    if (active && store.workspaceWithID(*active))
        store.set(store.m_activeWorkspaceID, *active, &AppStore::activeWorkspaceIDChanged);
    QList<Workspace> workspaces = store.m_workspaces;
    for (Workspace &workspace : workspaces) {
        const double minutes =
            store.m_defaults->number(preference_keys::responseTimeoutMinutes(workspace.id)).value_or(0);
        for (const std::int64_t honoured : {5, 15, 30, 60}) {
            if (minutes == static_cast<double>(honoured))
                workspace.responseTimeoutMinutes = honoured;
        }
        const QString word = store.m_defaults->string(preference_keys::timeoutAction(workspace.id)).value_or(QString());
        const auto action = fromRawValue<TimeoutAction>(word);
        if (action && isAllowed(*action, workspace.kind))
            workspace.timeoutAction = *action;
    }
    store.set(store.m_workspaces, workspaces, &AppStore::workspacesChanged);
}

void AppStore::tellIfForgotten()
{
    if (m_toldOfForgetting || !m_defaults)
        return;
    m_defaults->whenWritten([store = QPointer(this)](bool lasts) {
        if (lasts || !store || std::exchange(store->m_toldOfForgetting, true))
            return;
        store->showToast(
            QStringLiteral("Pingwell couldn't save this on your computer. It holds until you quit Pingwell."), true);
    });
}

} // namespace pingwell
