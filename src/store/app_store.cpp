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
    , m_records(m_seed)
    , m_mutations(m_unfinishedWork, {.client = [this] { return m_client; },
                                     .say = [this](const QString &sentence) { showToast(sentence, false); },
                                     .tellFailure = [this](const APIError &error) { tellFailure(error); }})
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
    followParts();
    endNotifications();
    chooseFirstWorkspace();
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

void AppStore::followParts()
{
    connect(&m_records, &Records::alertsChanged, this, &AppStore::alertsChanged);
    connect(&m_records, &Records::topicsChanged, this, &AppStore::topicsChanged);
    connect(&m_records, &Records::devicesChanged, this, &AppStore::devicesChanged);
    connect(&m_records, &Records::settingsChanged, this, &AppStore::settingsChanged);
    connect(&m_records, &Records::workspacesChanged, this, &AppStore::workspacesChanged);
    connect(&m_records, &Records::membersChanged, this, &AppStore::membersChanged);
    connect(&m_records, &Records::invitationsChanged, this, &AppStore::invitationsChanged);
    connect(&m_mutations, &Mutations::ended, this, &AppStore::mutationEnded);
}

void AppStore::mutationEnded(Mutations::Ending ending)
{
    // A session that began while a mutation of an earlier one was under way has had its first dashboards thrown away.
    const bool wasHeldUp = ending == Mutations::Ending::ofAnEarlierSession && m_client && !m_hasLoaded;
    if (ending == Mutations::Ending::refused || wasHeldUp)
        m_refreshIsOwed = true;
    refreshIfOwed();
}

void AppStore::notifyUnlessWatching(const QString &identifier, const QString &title, const QString &message) const
{
    if (m_backend && m_backend->notifier && !m_attention.isOnWindow())
        m_backend->notifier->deliverMessage(identifier, title, message);
}

void AppStore::tellFailure(const APIError &error)
{
    if (error.status() == 401)
        endRefusedSession(error.message());
    else
        showToast(error.message(), true);
}

void AppStore::chooseFirstWorkspace()
{
    const QString first = workspaces().isEmpty() ? QString() : workspaces().first().id;
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
    QList<Workspace> workspaces = store.workspaces();
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
    store.m_records.set(workspaces);
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
