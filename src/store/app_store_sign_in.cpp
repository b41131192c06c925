#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "auth/callback_result.h"
#include "auth/pkce.h"
#include "auth/web_authenticator.h"
#include "store/preference_keys.h"

#include <algorithm>

namespace pingwell {

namespace {

using namespace std::chrono_literals;

/// A pause in typing after which an address counts as typed.
constexpr auto typingSettles = 400ms;

QString missingAddressMessage()
{
    return QStringLiteral("Enter your server's address, like https://alerts.example.com.");
}

QString unfinishedMessage()
{
    return signInErrorMessage(QString());
}

} // namespace

/// What lies between the press of a button and the session.
struct AppStore::SignInSteps
{
    /// What a sign-in needs from its first step to its last, apart from the store: that may be gone in between.
    struct Attempt
    {
        APIClientPtr client;
        Backend::Authenticate authenticate;
        QUrl page;
        QString verifier;
    };

    static Attempt prepare(const Backend &backend, const QUrl &baseURL, AuthProvider provider);
    static void finish(AppStore &store, const QUrl &baseURL, const std::optional<Session> &session,
                       const std::optional<QString> &problem);
    static void signInToDemo(AppStore &store, AuthProvider provider);
    static QCoro::Task<> runSignIn(QPointer<AppStore> store, Attempt attempt);
    static QCoro::Task<> settleAndRefreshProviders(QPointer<AppStore> store, std::shared_ptr<Clock> clock,
                                                   std::stop_token stop);
    static QCoro::Task<> runRefreshProviders(QPointer<AppStore> store, std::optional<QUrl> baseURL);
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
    SignInSteps::Attempt attempt = SignInSteps::prepare(*m_backend, *baseURL, *known);
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
            .page = client->makeURL(QStringLiteral("/auth/") + rawValue(provider), query),
            .verifier = pkce.verifier};
}

QCoro::Task<> AppStore::SignInSteps::runSignIn(QPointer<AppStore> store, Attempt attempt)
{
    std::optional<QString> problem;
    std::optional<Session> session;
    try {
        const QUrl page = attempt.page;
        const QString scheme = signInCallbackScheme;
        const QUrl callback = co_await attempt.authenticate(page, scheme);
        const CallbackResult result = parseCallback(callback);
        if (result.kind == CallbackResult::Kind::error) {
            problem = signInErrorMessage(result.value);
        } else {
            const APIClientPtr client = attempt.client;
            Session answer = co_await endpoints::exchangeCode(client, result.value, attempt.verifier);
            session = std::move(answer);
        }
    } catch (const SignInCancelled &) {
        // The person knows.
    } catch (const APIError &error) {
        problem = error.message();
    } catch (...) {
        problem = unfinishedMessage();
    }
    if (store)
        finish(*store, attempt.client->baseURL(), session, problem);
}

void AppStore::SignInSteps::finish(AppStore &store, const QUrl &baseURL, const std::optional<Session> &session,
                                   const std::optional<QString> &problem)
{
    const bool signedIn = session && session->token && !session->token->isEmpty();
    if (signedIn) {
        store.persistSession(*session->token, baseURL, session->account);
        store.startSync();
    }
    const auto message = session && !signedIn ? std::optional(unfinishedMessage()) : problem;
    store.m_signInPage.clear();
    store.set(store.m_isSigningIn, false, &AppStore::isSigningInChanged);
    if (message)
        store.set(store.m_signInError, message, &AppStore::signInErrorChanged);
    // The keyring may have been opened meanwhile, too late for the start and in the way of this sign-in.
    store.restoreLateSession();
}

void AppStore::cancelSignIn()
{
    checkMainThread();
    if (m_isSigningIn && m_backend && m_backend->cancelAuthentication)
        m_backend->cancelAuthentication();
}

void AppStore::SignInSteps::signInToDemo(AppStore &store, AuthProvider provider)
{
    if (store.m_defaults)
        store.m_defaults->setString(preference_keys::sessionProvider, rawValue(provider));
    store.fillFromSeed();
    store.set(store.m_account, std::optional(demoAccount(provider)), &AppStore::accountChanged);
}

void AppStore::refreshProviders()
{
    checkMainThread();
    if (!m_backend)
        return;
    m_providersTask.request_stop();
    launch("sign-in providers", SignInSteps::runRefreshProviders(this, effectiveBaseURL()));
}

void AppStore::refreshProvidersSoon()
{
    if (!m_backend || isSignedIn())
        return;
    m_providersTask.request_stop();
    m_providersTask = std::stop_source();
    launch("sign-in providers", SignInSteps::settleAndRefreshProviders(this, m_clock, m_providersTask.get_token()));
}

QCoro::Task<> AppStore::SignInSteps::settleAndRefreshProviders(QPointer<AppStore> store, std::shared_ptr<Clock> clock,
                                                               std::stop_token stop)
{
    co_await clock->sleep(typingSettles, stop);
    if (store && !stop.stop_requested())
        store->refreshProviders();
}

QCoro::Task<> AppStore::SignInSteps::runRefreshProviders(QPointer<AppStore> store, std::optional<QUrl> baseURL)
{
    if (!baseURL)
        co_return;
    const APIClientPtr client = std::make_shared<const APIClient>(*baseURL, std::nullopt, store->m_backend->transport);
    QList<AuthProvider> offered;
    try {
        QList<AuthProvider> answer = co_await endpoints::listProviders(client);
        offered = std::move(answer);
    } catch (const APIError &) {
        // What the server offered last is the best guess; signing in will tell what is wrong.
        co_return;
    }
    // The person may have chosen another server meanwhile.
    if (!store || store->effectiveBaseURL() != baseURL)
        co_return;
    QList<AuthProvider> providers;
    for (const AuthProvider provider : allCases<AuthProvider>()) {
        if (offered.contains(provider))
            providers << provider;
    }
    store->set(store->m_availableProviders, providers, &AppStore::availableProvidersChanged);
}

} // namespace pingwell
