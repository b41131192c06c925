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

/// What a sign-in needs from its first step to its last, apart from the store: that may be gone in between.
struct AppStore::SignInAttempt
{
    APIClientPtr client;
    Backend::Authenticate authenticate;
    QUrl page;
    QString verifier;
};

void AppStore::signIn(const QString &provider)
{
    checkMainThread();
    const auto known = fromRawValue<AuthProvider>(provider);
    if (!known || m_isSigningIn)
        return;
    if (!m_backend) {
        signInToDemo(*known);
        return;
    }
    const auto baseURL = effectiveBaseURL();
    if (!baseURL) {
        set(m_signInError, std::optional(missingAddressMessage()), &AppStore::signInErrorChanged);
        return;
    }
    SignInAttempt attempt = prepareSignIn(*baseURL, *known);
    m_signInPage = attempt.page;
    set(m_signInError, std::optional<QString>(), &AppStore::signInErrorChanged);
    set(m_isSigningIn, true, &AppStore::isSigningInChanged);
    launch("sign-in", runSignIn(this, std::move(attempt)));
}

AppStore::SignInAttempt AppStore::prepareSignIn(const QUrl &baseURL, AuthProvider provider) const
{
    const PKCE pkce = PKCE::make();
    const QueryItems query{{QStringLiteral("redirect_uri"), signInCallbackURL},
                           {QStringLiteral("code_challenge"), pkce.challenge},
                           {QStringLiteral("code_challenge_method"), QStringLiteral("S256")}};
    const auto client = std::make_shared<const APIClient>(baseURL, std::nullopt, m_backend->transport);
    return {.client = client,
            .authenticate = m_backend->authenticate,
            .page = client->makeURL(QStringLiteral("/auth/") + rawValue(provider), query),
            .verifier = pkce.verifier};
}

QCoro::Task<> AppStore::runSignIn(QPointer<AppStore> store, SignInAttempt attempt)
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
        store->finishSignIn(attempt.client->baseURL(), session, problem);
}

void AppStore::finishSignIn(const QUrl &baseURL, const std::optional<Session> &session,
                            const std::optional<QString> &problem)
{
    const bool signedIn = session && session->token && !session->token->isEmpty();
    if (signedIn) {
        persistSession(*session->token, baseURL, session->account);
        startSync();
    }
    const auto message = session && !signedIn ? std::optional(unfinishedMessage()) : problem;
    m_signInPage.clear();
    set(m_isSigningIn, false, &AppStore::isSigningInChanged);
    if (message)
        set(m_signInError, message, &AppStore::signInErrorChanged);
}

void AppStore::cancelSignIn()
{
    checkMainThread();
    if (m_isSigningIn && m_backend && m_backend->cancelAuthentication)
        m_backend->cancelAuthentication();
}

void AppStore::signInToDemo(AuthProvider provider)
{
    if (m_defaults)
        m_defaults->setString(preference_keys::sessionProvider, rawValue(provider));
    fillFromSeed();
    set(m_account, std::optional(demoAccount(provider)), &AppStore::accountChanged);
}

void AppStore::refreshProviders()
{
    checkMainThread();
    if (!m_backend)
        return;
    m_providersTask.request_stop();
    launch("sign-in providers", runRefreshProviders(this, effectiveBaseURL()));
}

void AppStore::refreshProvidersSoon()
{
    if (!m_backend || isSignedIn())
        return;
    m_providersTask.request_stop();
    m_providersTask = std::stop_source();
    launch("sign-in providers", settleAndRefreshProviders(this, m_clock, m_providersTask.get_token()));
}

QCoro::Task<> AppStore::settleAndRefreshProviders(QPointer<AppStore> store, std::shared_ptr<Clock> clock,
                                                  std::stop_token stop)
{
    co_await clock->sleep(typingSettles, stop);
    if (store && !stop.stop_requested())
        store->refreshProviders();
}

QCoro::Task<> AppStore::runRefreshProviders(QPointer<AppStore> store, std::optional<QUrl> baseURL)
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
