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
    [[maybe_unused]] const auto outcome = co_await endpoints::unregisterDevice(client, deviceID);
}

} // namespace

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
        m_notifications.tellUnlessWatching(keyringNotification, QStringLiteral("Your sign-in is still in the keyring"),
                                           message);
    };
}

void AppStore::restoreSession()
{
    restoreLocalSettings();
    const QUrl chosen = effectiveBaseURL().value_or(APIClient::defaultBaseURL());
    const StoredSession::Restored found = m_session->restore(m_backend->baseURLOverride, chosen);
    if (found.kind == StoredSession::Restored::Kind::session) {
        m_client = std::make_shared<const APIClient>(found.baseURL, found.token, m_backend->transport);
        setAccount(found.account);
        return;
    }
    setAccount(std::nullopt);
    if (const auto message = absenceMessage(found))
        m_signIn.setError(message);
}

void AppStore::restoreLocalSettings()
{
    if (const auto workspaceID = m_navigation.rememberedWorkspaceID())
        m_navigation.showWorkspace(*workspaceID);
    NotificationSettings local = settings();
    local.quietHoursEnabled = m_defaults->boolean(preference_keys::quietHoursEnabled).value_or(local.quietHoursEnabled);
    m_records.setSettings(local);
}

void AppStore::restoreLateSession()
{
    if (m_client || m_signIn.isUnderWay())
        return;
    restoreSession();
    if (m_client)
        m_signIn.close();
    startSync();
}

void AppStore::persistSession(const QString &token, const QUrl &baseURL, const Account &account)
{
    checkMainThread();
    m_session->save(token, baseURL, account);
    m_client = std::make_shared<const APIClient>(baseURL, token, m_backend->transport);
    setAccount(account);
    tellIfForgotten();
    if (m_refusedSession.hasEnded())
        m_notifications.withdraw({sessionNotification});
    const RefusedSession::Drafts drafts = m_refusedSession.takeDrafts(baseURL, account);
    for (auto draft = drafts.cbegin(); draft != drafts.cend(); ++draft)
        setReplyDraft(draft.value(), draft.key());
}

void AppStore::signOut()
{
    checkMainThread();
    if (m_client) {
        const QString key = preference_keys::device(m_client->baseURL());
        if (const auto deviceID = m_defaults->string(key)) {
            m_defaults->remove(key);
            launch("device removal", forgetDevice(m_client, *deviceID, m_unfinishedWork.begin()));
        }
    }
    endSession(std::nullopt);
    m_defaults->remove(preference_keys::sessionProvider);
}

void AppStore::endSession(const std::optional<QString> &message)
{
    checkMainThread();
    if (m_session)
        m_session->erase();
    leaveSession(message);
}

void AppStore::endRefusedSession(const QString &message)
{
    checkMainThread();
    m_refusedSession.begin(m_client, account().value_or(Account()), message, m_replyDrafts);
    m_session->eraseRefused();
    leaveSession(message);
    tellRefusedSession();
}

void AppStore::noteUnsentAnswer(const APIClientPtr &client, const Alert &alert, const QString &text,
                                const APIError &error)
{
    const bool endsSession = client == m_client && error.status() == 401;
    if (!endsSession && !m_refusedSession.isOf(client)) {
        // Where the person signed out, or in anew, while the answer was on its way, no screen shows the ask any more.
        if (client != m_client)
            m_notifications.tellRefusalOfGone(alert.id, unsentAnswersText({alert.title}));
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
    m_signIn.setError(text);
    m_notifications.tellUnlessWatching(sessionNotification, QStringLiteral("You've been signed out"), text);
}

/// Leaves the session that is over: nothing of it is shown or followed any more.
void AppStore::leaveSession(const std::optional<QString> &message)
{
    m_client.reset();
    m_notifications.withdrawAll();
    // The account first: what is empty behind the sign-in screen is not looked at.
    setAccount(std::nullopt);
    resetParts();
    const QStringList drafted = m_replyDrafts.keys();
    for (const QString &alertID : drafted)
        removeReplyDraft(alertID);
    if (m_backend)
        restoreLocalSettings();
    m_signIn.reset(message);
    m_servers.refreshProviders();
}

void AppStore::resetParts()
{
    m_changes.reset();
    m_provisionalMembers.clear();
    m_ticker.forgetService();
    SeedData nothing;
    nothing.settings = m_seed.settings;
    m_records.reset(nothing);
    m_merge.reset();
    m_sync.reset();
    m_navigation.reset();
}

} // namespace pingwell
