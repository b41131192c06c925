#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "auth/callback_result.h"
#include "auth/pkce.h"
#include "auth/session_secret.h"
#include "auth/web_authenticator.h"
#include "desktop/preference_keys.h"

namespace pingwell {

namespace {

QString missingAddressMessage()
{
    return QStringLiteral("Enter your server's address, like https://alerts.example.com.");
}

QString unfinishedMessage()
{
    return signInErrorMessage(QString());
}

/// Why the server's answer to a code opens no session; none when it does.
std::optional<QString> problemWith(const Session &session)
{
    if (!session.token || session.token->isEmpty())
        return unfinishedMessage();
    if (!isToken(*session.token))
        return QStringLiteral("Sign-in didn't finish: the server sent a token that Pingwell can't use.");
    return std::nullopt;
}

/// What the browser came back with. Without a callback it won't come back any more; `problem` says why, where there is
/// something to say.
struct BrowserReturn
{
    std::optional<QUrl> callback = std::nullopt;
    std::optional<QString> problem = std::nullopt;
};

/// A session, or why there is none.
struct ExchangeResult
{
    std::optional<Session> session = std::nullopt;
    std::optional<QString> problem = std::nullopt;
};

} // namespace

/// What lies between the press of a button and the session.
struct AppStore::SignInSteps
{
    /// What a sign-in needs from its first step to its last, apart from the store: that may be gone in between.
    struct Attempt
    {
        APIClientPtr client;
        Backend::Authenticate authenticate;
        Backend::NextCallback nextCallback;
        QUrl page;
        QString verifier;
        std::stop_token stop;
    };

    static Attempt prepare(const Backend &backend, const QUrl &baseURL, AuthProvider provider);
    static void signInToDemo(AppStore &store, AuthProvider provider);
    static QCoro::Task<> runSignIn(QPointer<AppStore> store, Attempt attempt);
    static QCoro::Task<BrowserReturn> openPage(Attempt attempt);
    static QCoro::Task<BrowserReturn> awaitAnotherReturn(Attempt attempt);
    static QCoro::Task<ExchangeResult> exchange(Attempt attempt, QString code);
    /// Whether a callback that came after an earlier one failed still counts.
    static bool isWanted(const AppStore &store, const Attempt &attempt);
    static void resume(AppStore &store);
    static void rest(AppStore &store, const std::optional<QString> &problem);
    static void complete(AppStore &store, const QUrl &baseURL, const Session &session);
};

void AppStore::signIn(const QString &provider)
{
    checkMainThread();
    const auto known = fromRawValue<AuthProvider>(provider);
    if (!known || m_isSigningIn)
        return;
    if (!m_backend) {
        SignInSteps::signInToDemo(*this, *known);
        return;
    }
    const auto baseURL = effectiveBaseURL();
    if (!baseURL) {
        set(m_signInError, std::optional(missingAddressMessage()), &AppStore::signInErrorChanged);
        return;
    }
    closeSignIn();
    m_signInTask = std::stop_source();
    SignInSteps::Attempt attempt = SignInSteps::prepare(*m_backend, *baseURL, *known);
    attempt.stop = m_signInTask.get_token();
    m_signInPage = attempt.page;
    set(m_signInError, std::optional<QString>(), &AppStore::signInErrorChanged);
    set(m_isSigningIn, true, &AppStore::isSigningInChanged);
    launch("sign-in", SignInSteps::runSignIn(this, std::move(attempt)));
}

AppStore::SignInSteps::Attempt AppStore::SignInSteps::prepare(const Backend &backend, const QUrl &baseURL,
                                                              AuthProvider provider)
{
    const PKCE pkce = PKCE::make();
    const QueryItems query{{QStringLiteral("redirect_uri"), signInCallbackURL},
                           {QStringLiteral("code_challenge"), pkce.challenge},
                           {QStringLiteral("code_challenge_method"), QStringLiteral("S256")}};
    const auto client = std::make_shared<const APIClient>(baseURL, std::nullopt, backend.transport);
    return {.client = client,
            .authenticate = backend.authenticate,
            .nextCallback = backend.nextCallback,
            .page = client->makeURL(QStringLiteral("/auth/") + rawValue(provider), query),
            .verifier = pkce.verifier,
            .stop = {}};
}

/// Any page can send the browser to the callback's address, with an error or with a code of its own. So what fails
/// shows a message and lets the person begin anew, while the attempt itself stays open for the redirect that is the
/// server's.
QCoro::Task<> AppStore::SignInSteps::runSignIn(QPointer<AppStore> store, Attempt attempt)
{
    BrowserReturn returned = co_await openPage(attempt);
    for (;;) {
        if (!store || attempt.stop.stop_requested())
            co_return;
        if (!returned.callback) {
            rest(*store, returned.problem);
            co_return;
        }
        const CallbackResult result = parseCallback(*returned.callback);
        if (!isWanted(*store, attempt)) {
            // The person has turned to another server.
        } else if (result.kind == CallbackResult::Kind::error) {
            rest(*store, signInErrorMessage(result.value));
        } else {
            resume(*store);
            const ExchangeResult exchanged = co_await exchange(attempt, result.value);
            if (!store || attempt.stop.stop_requested())
                co_return;
            if (exchanged.session) {
                complete(*store, attempt.client->baseURL(), *exchanged.session);
                co_return;
            }
            rest(*store, exchanged.problem);
        }
        BrowserReturn another = co_await awaitAnotherReturn(attempt);
        returned = std::move(another);
    }
}

QCoro::Task<BrowserReturn> AppStore::SignInSteps::openPage(Attempt attempt)
{
    const QUrl page = attempt.page;
    const QString scheme = signInCallbackScheme;
    const Outcome<WebAuthenticator::Return> outcome = co_await attempt.authenticate(page, scheme);
    BrowserReturn returned;
    if (outcome.error())
        returned.problem = outcome.error()->message();
    else
        returned.callback = *outcome.value();
    co_return returned;
}

QCoro::Task<BrowserReturn> AppStore::SignInSteps::awaitAnotherReturn(Attempt attempt)
{
    BrowserReturn returned;
    if (!attempt.nextCallback || attempt.stop.stop_requested())
        co_return returned;
    // Where it has ended, what failed before has been told.
    const WebAuthenticator::Return callback = co_await attempt.nextCallback();
    returned.callback = callback;
    co_return returned;
}

QCoro::Task<ExchangeResult> AppStore::SignInSteps::exchange(Attempt attempt, QString code)
{
    const APIClientPtr client = attempt.client;
    const Outcome<Session> session = co_await endpoints::exchangeCode(client, code, attempt.verifier);
    ExchangeResult result;
    result.problem = session.error() ? session.error()->message() : problemWith(*session.value());
    if (!result.problem)
        result.session = *session.value();
    co_return result;
}

bool AppStore::SignInSteps::isWanted(const AppStore &store, const Attempt &attempt)
{
    return store.m_isSigningIn || store.effectiveBaseURL() == attempt.client->baseURL();
}

void AppStore::SignInSteps::resume(AppStore &store)
{
    store.set(store.m_signInError, std::optional<QString>(), &AppStore::signInErrorChanged);
    store.set(store.m_isSigningIn, true, &AppStore::isSigningInChanged);
}

void AppStore::SignInSteps::rest(AppStore &store, const std::optional<QString> &problem)
{
    store.m_signInPage.clear();
    store.set(store.m_isSigningIn, false, &AppStore::isSigningInChanged);
    // The keyring may have been opened meanwhile, too late for the start and in the way of this sign-in.
    store.restoreLateSession();
    // Last: where there is still no session, what failed now matters more than why the start found none.
    if (problem && !store.m_client)
        store.set(store.m_signInError, problem, &AppStore::signInErrorChanged);
}

void AppStore::SignInSteps::complete(AppStore &store, const QUrl &baseURL, const Session &session)
{
    store.persistSession(*session.token, baseURL, session.account);
    store.startSync();
    store.closeSignIn();
}

void AppStore::cancelSignIn()
{
    checkMainThread();
    if (!m_isSigningIn)
        return;
    closeSignIn();
    restoreLateSession();
}

void AppStore::closeSignIn()
{
    m_signInTask.request_stop();
    if (m_backend && m_backend->cancelAuthentication)
        m_backend->cancelAuthentication();
    m_signInPage.clear();
    set(m_isSigningIn, false, &AppStore::isSigningInChanged);
}

void AppStore::SignInSteps::signInToDemo(AppStore &store, AuthProvider provider)
{
    if (store.m_defaults)
        store.m_defaults->setString(preference_keys::sessionProvider, rawValue(provider));
    store.m_records.reset(store.m_seed);
    store.chooseFirstWorkspace();
    store.set(store.m_account, std::optional(demoAccount(provider)), &AppStore::accountChanged);
}

} // namespace pingwell
