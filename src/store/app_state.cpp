#include "store/app_state.h"

namespace pingwell {

AppState::AppState(const SeedData &seed, const std::shared_ptr<Preferences> &preferences, Instant now,
                   std::shared_ptr<Backend> backend, const std::shared_ptr<Clock> &clock, Handlers handlers,
                   QObject *parent)
    : QObject(parent)
    , m_backend(std::move(backend))
    , m_records(seed)
    , m_navigation(preferences)
    , m_servers(m_backend, preferences, clock)
    , m_toasts(clock)
    , m_ticker(clock, now, [this] { return nextDeadline(alerts(), this->now()); })
    , m_mutations(m_unfinishedWork, {.client = [this] { return m_client; },
                                     .say = [this](const QString &sentence) { m_toasts.show(sentence, false); },
                                     .tellFailure = std::move(handlers.tellFailure)})
    , m_unreadOverrides(preferences)
    , m_merge(m_backend == nullptr, m_records, m_changes, m_mutations, m_navigation, m_unreadOverrides)
    , m_sync(m_backend, clock, m_ticker, m_merge, m_mutations, std::move(handlers.sync))
    , m_signIn(m_backend, m_servers, std::move(handlers.signIn))
    , m_notifications(m_backend ? m_backend->notifier : nullptr, preferences)
{
    followRecords();
    followNavigation();
    followService();
    m_notifications.endAsks(alerts(), now);
}

AppState::~AppState() = default;

void AppState::followRecords()
{
    connect(&m_records, &Records::alertsChanged, this, &AppState::alertsChanged);
    connect(&m_records, &Records::topicsChanged, this, &AppState::topicsChanged);
    connect(&m_records, &Records::devicesChanged, this, &AppState::devicesChanged);
    connect(&m_records, &Records::settingsChanged, this, &AppState::settingsChanged);
    connect(&m_records, &Records::workspacesChanged, this, &AppState::workspacesChanged);
    connect(&m_records, &Records::membersChanged, this, &AppState::membersChanged);
    connect(&m_records, &Records::invitationsChanged, this, &AppState::invitationsChanged);
    connect(this, &AppState::alertsChanged, this, &AppState::unreadCountChanged);
    connect(this, &AppState::activeWorkspaceIDChanged, this, &AppState::unreadCountChanged);
    connect(this, &AppState::alertsChanged, this, [this] { m_notifications.endAsks(alerts(), now()); });
    connect(this, &AppState::nowChanged, this, [this] { m_notifications.endAsksBy(alerts(), now()); });
}

void AppState::followNavigation()
{
    connect(&m_navigation, &Navigation::activeWorkspaceIDChanged, this, &AppState::activeWorkspaceIDChanged);
    connect(&m_navigation, &Navigation::sectionChanged, this, &AppState::sectionChanged);
    connect(&m_navigation, &Navigation::filterChanged, this, &AppState::filterChanged);
    connect(&m_navigation, &Navigation::selectedAlertIDChanged, this, &AppState::selectedAlertIDChanged);
    connect(&m_navigation, &Navigation::requestedReplyIDChanged, this, &AppState::requestedReplyIDChanged);
    connect(&m_navigation, &Navigation::focusModeChanged, this, &AppState::focusModeChanged);
    connect(&m_navigation, &Navigation::isCreatingWorkspaceChanged, this, &AppState::isCreatingWorkspaceChanged);
    connect(&m_navigation, &Navigation::showsNotificationPromptChanged, this,
            &AppState::showsNotificationPromptChanged);
    connect(&m_toasts, &ToastLine::toastChanged, this, &AppState::toastChanged);
    connect(&m_ticker, &Ticker::nowChanged, this, &AppState::nowChanged);
}

void AppState::followService()
{
    connect(&m_servers, &ServerChoice::serverChanged, this, &AppState::serverChanged);
    connect(&m_servers, &ServerChoice::selfHostedURLChanged, this, &AppState::selfHostedURLChanged);
    connect(&m_servers, &ServerChoice::availableProvidersChanged, this, &AppState::availableProvidersChanged);
    connect(&m_signIn, &SignIn::isSigningInChanged, this, &AppState::isSigningInChanged);
    connect(&m_signIn, &SignIn::signInErrorChanged, this, &AppState::signInErrorChanged);
    connect(&m_merge, &Merge::hasLoadedChanged, this, &AppState::hasLoadedChanged);
    connect(&m_merge, &Merge::leftOutChanged, this, &AppState::leftOutChanged);
    connect(&m_sync, &LiveSync::problemChanged, this, &AppState::connectionProblemChanged);
    connect(&m_sync, &LiveSync::lastSyncedAtChanged, this, &AppState::lastSyncedAtChanged);
}

void AppState::setAccount(const std::optional<Account> &account)
{
    if (m_account == account)
        return;
    m_account = account;
    emit accountChanged();
}

} // namespace pingwell
