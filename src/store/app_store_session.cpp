#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "auth/account_record.h"
#include "store/preference_keys.h"

namespace pingwell {

namespace {

/// Stands in for an account record that can't be read; the token is still good.
Account placeholderAccount()
{
    return {.name = QStringLiteral("You"), .email = QString(), .provider = AuthProvider::google, .plan = QString()};
}

QString lostServerMessage()
{
    return QStringLiteral("Pingwell couldn't read its settings on this computer. Sign in again.");
}

QCoro::Task<> forgetDevice(APIClientPtr client, QString deviceID, [[maybe_unused]] std::shared_ptr<const void> work)
{
    try {
        co_await endpoints::unregisterDevice(client, deviceID);
    } catch (const APIError &) {
        // The person has left already; the service forgets a silent device by itself.
    }
}

} // namespace

/// What a session begins and ends with.
struct AppStore::SessionSteps
{
    static QUrl restoredBaseURL(const AppStore &store);
    static void restoreLocalSettings(AppStore &store);
    static void reset(AppStore &store);
};

void AppStore::watchTokenStore()
{
    TokenStore &tokens = *m_backend->tokenStore;
    tokens.onBecameReadable = [this] { restoreLateSession(); };
    tokens.onNotKept = [this] {
        showToast(QStringLiteral("Pingwell couldn't save your sign-in in the keyring. "
                                 "You'll have to sign in again after a restart."),
                  true);
    };
}

std::optional<QUrl> AppStore::effectiveBaseURL() const
{
    if (m_backend && m_backend->baseURLOverride)
        return m_backend->baseURLOverride;
    if (m_server == ServerKind::selfHosted)
        return APIClient::normalizedBaseURL(m_selfHostedURL);
    return APIClient::defaultBaseURL();
}

void AppStore::restoreSession()
{
    SessionSteps::restoreLocalSettings(*this);
    const auto token = m_backend->tokenStore->load();
    if (!token || token->isEmpty()) {
        set(m_account, std::optional<Account>(), &AppStore::accountChanged);
        return;
    }
    if (!m_backend->baseURLOverride && m_defaults && !m_defaults->isWhole()) {
        // Which server the token belongs to is lost, and no other may see it: not now, and not in the next run.
        m_backend->tokenStore->clear();
        set(m_account, std::optional<Account>(), &AppStore::accountChanged);
        set(m_signInError, std::optional(lostServerMessage()), &AppStore::signInErrorChanged);
        return;
    }
    m_client = std::make_shared<const APIClient>(SessionSteps::restoredBaseURL(*this), token, m_backend->transport);
    std::optional<Account> account;
    if (m_defaults) {
        if (const auto record = m_defaults->data(preference_keys::sessionAccount))
            account = decodedAccount(*record);
    }
    set(m_account, std::optional(account.value_or(placeholderAccount())), &AppStore::accountChanged);
}

QUrl AppStore::SessionSteps::restoredBaseURL(const AppStore &store)
{
    if (store.m_backend->baseURLOverride)
        return *store.m_backend->baseURLOverride;
    if (store.m_defaults) {
        const auto stored = store.m_defaults->string(preference_keys::sessionBaseURL);
        const QUrl url = stored ? QUrl(*stored, QUrl::StrictMode) : QUrl();
        if (url.isValid() && !url.host().isEmpty())
            return url;
    }
    return store.effectiveBaseURL().value_or(APIClient::defaultBaseURL());
}

void AppStore::SessionSteps::restoreLocalSettings(AppStore &store)
{
    if (!store.m_defaults)
        return;
    if (const auto workspace = store.m_defaults->string(preference_keys::activeWorkspace))
        store.set(store.m_activeWorkspaceID, *workspace, &AppStore::activeWorkspaceIDChanged);
    if (const auto quiet = store.m_defaults->boolean(preference_keys::quietHoursEnabled)) {
        NotificationSettings settings = store.m_settings;
        settings.quietHoursEnabled = *quiet;
        store.set(store.m_settings, settings, &AppStore::settingsChanged);
    }
}

void AppStore::restoreLateSession()
{
    if (m_client || m_isSigningIn)
        return;
    restoreSession();
    startSync();
}

void AppStore::persistSession(const QString &token, const QUrl &baseURL, const Account &account)
{
    checkMainThread();
    m_backend->tokenStore->save(token);
    if (m_defaults)
        m_defaults->setString(preference_keys::sessionBaseURL, baseURL.toString(QUrl::FullyEncoded));
    saveAccount(account);
    m_client = std::make_shared<const APIClient>(baseURL, token, m_backend->transport);
    set(m_account, std::optional(account), &AppStore::accountChanged);
}

void AppStore::saveAccount(const Account &account)
{
    if (m_defaults)
        m_defaults->setData(preference_keys::sessionAccount, encodedAccount(account));
}

void AppStore::signOut()
{
    checkMainThread();
    if (m_client && m_defaults) {
        const QString key = preference_keys::device(m_client->baseURL());
        if (const auto deviceID = m_defaults->string(key)) {
            m_defaults->remove(key);
            launch("device removal", forgetDevice(m_client, *deviceID, m_unfinishedWork.begin()));
        }
    }
    endSession(std::nullopt);
    if (m_defaults)
        m_defaults->remove(preference_keys::sessionProvider);
}

void AppStore::endSession(const std::optional<QString> &message)
{
    checkMainThread();
    m_syncTask.request_stop();
    m_syncTask = std::stop_source(std::nostopstate);
    m_client.reset();
    if (m_backend) {
        m_backend->tokenStore->clear();
        if (m_backend->notifier)
            m_backend->notifier->removeAll();
    }
    if (m_defaults) {
        m_defaults->remove(preference_keys::sessionAccount);
        m_defaults->remove(preference_keys::sessionBaseURL);
        m_defaults->remove(preference_keys::promptDismissed);
    }
    SessionSteps::reset(*this);
    set(m_signInError, message, &AppStore::signInErrorChanged);
    refreshProviders();
}

void AppStore::SessionSteps::reset(AppStore &store)
{
    store.m_appliedBody.clear();
    store.m_refreshIsOwed = false;
    store.m_invitationsAreOwed = false;
    // The next session may be one of another server.
    store.m_serviceClock.forget();
    store.m_lanes.clear();
    store.m_provisionalMembers.clear();
    // The account first: what is empty behind the sign-in screen is not looked at.
    store.set(store.m_account, std::optional<Account>(), &AppStore::accountChanged);
    store.set(store.m_alerts, QList<Alert>(), &AppStore::alertsChanged);
    store.set(store.m_topics, QList<Topic>(), &AppStore::topicsChanged);
    store.set(store.m_devices, QList<Device>(), &AppStore::devicesChanged);
    store.set(store.m_workspaces, QList<Workspace>(), &AppStore::workspacesChanged);
    store.set(store.m_members, QMap<QString, QList<Member>>(), &AppStore::membersChanged);
    store.set(store.m_invitations, QList<Invitation>(), &AppStore::invitationsChanged);
    store.set(store.m_settings, store.m_seed.settings, &AppStore::settingsChanged);
    store.set(store.m_activeWorkspaceID, QString(), &AppStore::activeWorkspaceIDChanged);
    store.set(store.m_focusMode, false, &AppStore::focusModeChanged);
    store.set(store.m_hasLoaded, store.m_backend == nullptr, &AppStore::hasLoadedChanged);
    store.set(store.m_isSigningIn, false, &AppStore::isSigningInChanged);
    store.set(store.m_connectionProblem, std::optional<QString>(), &AppStore::connectionProblemChanged);
    store.set(store.m_leftOut, QString(), &AppStore::leftOutChanged);
    store.set(store.m_lastSyncedAt, std::optional<Instant>(), &AppStore::lastSyncedAtChanged);
    store.set(store.m_section, SidebarSection::inbox, &AppStore::sectionChanged);
    store.set(store.m_isCreatingWorkspace, false, &AppStore::isCreatingWorkspaceChanged);
    store.set(store.m_showsNotificationPrompt, false, &AppStore::showsNotificationPromptChanged);
    store.clearSelectionAndFilter();
    const QStringList drafted = store.m_replyDrafts.keys();
    for (const QString &alertID : drafted)
        store.removeReplyDraft(alertID);
    if (store.m_backend)
        restoreLocalSettings(store);
}

} // namespace pingwell
