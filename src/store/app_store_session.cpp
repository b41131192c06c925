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

QCoro::Task<> forgetDevice(APIClientPtr client, QString deviceID)
{
    try {
        co_await endpoints::unregisterDevice(client, deviceID);
    } catch (const APIError &) {
        // The person has left already; the service forgets a silent device by itself.
    }
}

} // namespace

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
    restoreLocalSettings();
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
    m_client = std::make_shared<const APIClient>(restoredBaseURL(), token, m_backend->transport);
    std::optional<Account> account;
    if (m_defaults) {
        if (const auto record = m_defaults->data(preference_keys::sessionAccount))
            account = decodedAccount(*record);
    }
    set(m_account, std::optional(account.value_or(placeholderAccount())), &AppStore::accountChanged);
}

QUrl AppStore::restoredBaseURL() const
{
    if (m_backend->baseURLOverride)
        return *m_backend->baseURLOverride;
    if (m_defaults) {
        const auto stored = m_defaults->string(preference_keys::sessionBaseURL);
        const QUrl url = stored ? QUrl(*stored, QUrl::StrictMode) : QUrl();
        if (url.isValid() && !url.host().isEmpty())
            return url;
    }
    return effectiveBaseURL().value_or(APIClient::defaultBaseURL());
}

void AppStore::restoreLocalSettings()
{
    if (!m_defaults)
        return;
    if (const auto workspace = m_defaults->string(preference_keys::activeWorkspace))
        set(m_activeWorkspaceID, *workspace, &AppStore::activeWorkspaceIDChanged);
    if (const auto quiet = m_defaults->boolean(preference_keys::quietHoursEnabled)) {
        NotificationSettings settings = m_settings;
        settings.quietHoursEnabled = *quiet;
        set(m_settings, settings, &AppStore::settingsChanged);
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
            launch("device removal", forgetDevice(m_client, *deviceID));
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
    resetSession();
    set(m_signInError, message, &AppStore::signInErrorChanged);
    refreshProviders();
}

void AppStore::resetSession()
{
    ++m_refreshSerial;
    m_isRefreshing = false;
    m_appliedBody.clear();
    m_refreshIsOwed = false;
    m_mutationLanes.clear();
    m_provisionalMembers.clear();
    m_plan.clear();
    // The account first: what is empty behind the sign-in screen is not looked at.
    set(m_account, std::optional<Account>(), &AppStore::accountChanged);
    set(m_alerts, QList<Alert>(), &AppStore::alertsChanged);
    set(m_topics, QList<Topic>(), &AppStore::topicsChanged);
    set(m_devices, QList<Device>(), &AppStore::devicesChanged);
    set(m_workspaces, QList<Workspace>(), &AppStore::workspacesChanged);
    set(m_members, QMap<QString, QList<Member>>(), &AppStore::membersChanged);
    set(m_invitations, QList<Invitation>(), &AppStore::invitationsChanged);
    set(m_settings, m_seed.settings, &AppStore::settingsChanged);
    set(m_activeWorkspaceID, QString(), &AppStore::activeWorkspaceIDChanged);
    set(m_focusMode, false, &AppStore::focusModeChanged);
    set(m_hasLoaded, m_backend == nullptr, &AppStore::hasLoadedChanged);
    set(m_isSigningIn, false, &AppStore::isSigningInChanged);
    set(m_connectionProblem, std::optional<QString>(), &AppStore::connectionProblemChanged);
    set(m_lastSyncedAt, std::optional<Instant>(), &AppStore::lastSyncedAtChanged);
    set(m_section, SidebarSection::inbox, &AppStore::sectionChanged);
    set(m_isCreatingWorkspace, false, &AppStore::isCreatingWorkspaceChanged);
    set(m_showsNotificationPrompt, false, &AppStore::showsNotificationPromptChanged);
    clearSelectionAndFilter();
    const QStringList drafted = m_replyDrafts.keys();
    for (const QString &alertID : drafted)
        removeReplyDraft(alertID);
    if (m_backend)
        restoreLocalSettings();
}

} // namespace pingwell
