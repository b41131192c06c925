#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "desktop/preference_keys.h"

namespace pingwell {

namespace {

// Under which the notification of a session's end is shown and taken back.
const QString sessionNotification = QStringLiteral("pingwell.session");
const QString keyringNotification = QStringLiteral("pingwell.keyring");

/// Why a token that is there opens no session; none where there is nothing to say.
std::optional<QString> absenceMessage(const StoredSession::Restored &found)
{
    using Kind = StoredSession::Restored::Kind;
    if (found.kind == Kind::unknownServer)
        return QStringLiteral("Pingwell couldn't read its settings on this computer. Sign in again.");
    if (found.kind != Kind::anotherServer)
        return std::nullopt;
    return QStringLiteral("You were signed in at %1. Sign in again to use %2.")
        .arg(QUrl(found.tokenOrigin).authority(), found.baseURL.authority());
}

QString notErasedMessage(bool isRemembered)
{
    if (isRemembered)
        return QStringLiteral("You're signed out, but the keyring couldn't be opened to remove your sign-in. "
                              "Pingwell doesn't use it any more and removes it once the keyring is open.");
    return QStringLiteral(
        "Your sign-in couldn't be removed from the keyring, and Pingwell couldn't save that you signed "
        "out. Unlock the keyring before you quit Pingwell, or the next start is signed in again.");
}

QCoro::Task<> forgetDevice(APIClientPtr client, QString deviceID, [[maybe_unused]] std::shared_ptr<const void> work)
{
    // Whatever comes of it: the person has left already, and the service forgets a silent device by itself.
    co_await endpoints::unregisterDevice(client, deviceID);
}

} // namespace

/// What a session begins and ends with.
struct AppStore::SessionSteps
{
    static void restoreLocalSettings(AppStore &store);
    static void leave(AppStore &store, const std::optional<QString> &message);
    static void reset(AppStore &store);
};

void AppStore::openStoredSession()
{
    m_session = std::make_unique<StoredSession>(m_backend->tokenStore, m_defaults);
    m_session->onBecameReadable = [this] { restoreLateSession(); };
    m_session->onNotKept = [this] {
        showToast(QStringLiteral("Pingwell couldn't save your sign-in in the keyring. "
                                 "You'll have to sign in again after a restart."),
                  true);
    };
    m_session->onNotErased = [this] {
        const QString message = notErasedMessage(m_session->remembersErasing());
        showToast(message, true);
        notifyUnlessWatching(keyringNotification, QStringLiteral("Your sign-in is still in the keyring"), message);
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
    const QUrl chosen = effectiveBaseURL().value_or(APIClient::defaultBaseURL());
    const StoredSession::Restored found = m_session->restore(m_backend->baseURLOverride, chosen);
    if (found.kind == StoredSession::Restored::Kind::session) {
        m_client = std::make_shared<const APIClient>(found.baseURL, found.token, m_backend->transport);
        set(m_account, std::optional(found.account), &AppStore::accountChanged);
        return;
    }
    set(m_account, std::optional<Account>(), &AppStore::accountChanged);
    if (const auto message = absenceMessage(found))
        set(m_signInError, message, &AppStore::signInErrorChanged);
}

void AppStore::SessionSteps::restoreLocalSettings(AppStore &store)
{
    if (!store.m_defaults)
        return;
    if (const auto workspace = store.m_defaults->string(preference_keys::activeWorkspace))
        store.set(store.m_activeWorkspaceID, *workspace, &AppStore::activeWorkspaceIDChanged);
    if (const auto quiet = store.m_defaults->boolean(preference_keys::quietHoursEnabled)) {
        NotificationSettings settings = store.settings();
        settings.quietHoursEnabled = *quiet;
        store.m_records.setSettings(settings);
    }
}

void AppStore::restoreLateSession()
{
    if (m_client || m_isSigningIn)
        return;
    restoreSession();
    if (m_client)
        closeSignIn();
    startSync();
}

void AppStore::persistSession(const QString &token, const QUrl &baseURL, const Account &account)
{
    checkMainThread();
    m_session->save(token, baseURL, account);
    m_client = std::make_shared<const APIClient>(baseURL, token, m_backend->transport);
    set(m_account, std::optional(account), &AppStore::accountChanged);
    tellIfForgotten();
    if (m_refusedSession.hasEnded())
        withdrawNotifications({sessionNotification});
    const RefusedSession::Drafts drafts = m_refusedSession.takeDrafts(baseURL, account);
    for (auto draft = drafts.cbegin(); draft != drafts.cend(); ++draft)
        setReplyDraft(draft.value(), draft.key());
}

void AppStore::saveAccount(const Account &account)
{
    if (m_session)
        m_session->saveAccount(account);
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
    if (m_session)
        m_session->erase();
    SessionSteps::leave(*this, message);
}

void AppStore::endRefusedSession(const QString &message)
{
    checkMainThread();
    m_refusedSession.begin(m_client, m_account.value_or(Account()), message, m_replyDrafts);
    m_session->eraseRefused();
    SessionSteps::leave(*this, message);
    tellRefusedSession();
}

void AppStore::noteUnsentAnswer(const APIClientPtr &client, const Alert &alert, const QString &text,
                                const APIError &error)
{
    const bool endsSession = client == m_client && error.status() == 401;
    if (!endsSession && !m_refusedSession.isOf(client)) {
        // Where the person signed out, or in anew, while the answer was on its way, no screen shows the ask any more.
        if (client != m_client)
            tellRefusalOfGone(alert.id, unsentAnswersText({alert.title}));
        return;
    }
    m_refusedSession.addUnsentAnswer(client, alert.title);
    // The end that follows tells it, and keeps the text that is back in its field by then.
    if (endsSession)
        return;
    if (alert.acceptsText())
        m_refusedSession.keepDraft(alert.id, text);
    tellRefusedSession();
}

void AppStore::tellRefusedSession()
{
    const QString text = m_refusedSession.text();
    set(m_signInError, std::optional(text), &AppStore::signInErrorChanged);
    notifyUnlessWatching(sessionNotification, QStringLiteral("You've been signed out"), text);
}

/// Leaves the session that is over: nothing of it is shown or followed any more.
void AppStore::SessionSteps::leave(AppStore &store, const std::optional<QString> &message)
{
    store.m_syncTask.request_stop();
    store.m_syncTask = std::stop_source(std::nostopstate);
    store.m_client.reset();
    if (store.m_backend && store.m_backend->notifier)
        store.m_backend->notifier->removeAll();
    if (store.m_defaults)
        store.m_defaults->remove(preference_keys::promptDismissed);
    reset(store);
    store.set(store.m_signInError, message, &AppStore::signInErrorChanged);
    store.refreshProviders();
}

void AppStore::SessionSteps::reset(AppStore &store)
{
    store.m_appliedBody.clear();
    store.m_refreshIsOwed = false;
    store.m_invitationsAreOwed = false;
    // The next session may be one of another server.
    store.m_serviceClock.forget();
    store.m_changes.reset();
    store.m_provisionalMembers.clear();
    // The account first: what is empty behind the sign-in screen is not looked at.
    store.set(store.m_account, std::optional<Account>(), &AppStore::accountChanged);
    SeedData nothing;
    nothing.settings = store.m_seed.settings;
    store.m_records.reset(nothing);
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
