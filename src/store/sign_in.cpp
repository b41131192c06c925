#include "store/sign_in.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "auth/callback_result.h"
#include "auth/pkce.h"
#include "auth/session_secret.h"

#include <utility>

namespace pingwell {

namespace {

QString missingAddressMessage()
{
    return QStringLiteral("Enter your server's address, like https://alerts.example.com.");
}

/// Why the server's answer to a code opens no session; none when it does.
std::optional<QString> problemWith(const Session &session)
{
    if (!session.token || session.token->isEmpty())
        return signInErrorMessage(QString());
    if (!isToken(*session.token))
        return QStringLiteral("Sign-in didn't finish: the server sent a token that Pingwell can't use.");
    return std::nullopt;
}

} // namespace

/// What a sign-in needs from its first step to its last, apart from its owner: that may be gone in between.
struct SignIn::Attempt
{
    APIClientPtr client;
    Backend::Authenticate authenticate;
    Backend::NextCallback nextCallback;
    QUrl page;
    QString verifier;
    std::stop_token stop;
};

/// What the browser came back with. Without a callback it won't come back any more; `problem` says why, where there is
/// something to say.
struct SignIn::BrowserReturn
{
    std::optional<QUrl> callback = std::nullopt;
    std::optional<QString> problem = std::nullopt;
};

/// A session, or why there is none.
struct SignIn::Exchange
{
    std::optional<Session> session = std::nullopt;
    std::optional<QString> problem = std::nullopt;
};

SignIn::SignIn(std::shared_ptr<Backend> backend, const ServerChoice &servers, Surroundings surroundings)
    : m_backend(std::move(backend))
    , m_servers(servers)
    , m_surroundings(std::move(surroundings))
{
}

SignIn::~SignIn()
{
    m_attempt.request_stop();
}

void SignIn::start(AuthProvider provider)
{
    if (m_isUnderWay)
        return;
    const auto baseURL = m_servers.baseURL();
    if (!baseURL) {
        setError(missingAddressMessage());
        return;
    }
    close();
    m_attempt = std::stop_source();
    Attempt attempt = prepare(*baseURL, provider);
    attempt.stop = m_attempt.get_token();
    m_page = attempt.page;
    resume();
    launch("sign-in", run(this, std::move(attempt)));
}

SignIn::Attempt SignIn::prepare(const QUrl &baseURL, AuthProvider provider) const
{
    const PKCE pkce = PKCE::make();
    const QueryItems query{{QStringLiteral("redirect_uri"), signInCallbackURL},
                           {QStringLiteral("code_challenge"), pkce.challenge},
                           {QStringLiteral("code_challenge_method"), QStringLiteral("S256")}};
    const auto client = std::make_shared<const APIClient>(baseURL, std::nullopt, m_backend->transport);
    return {.client = client,
            .authenticate = m_backend->authenticate,
            .nextCallback = m_backend->nextCallback,
            .page = client->makeURL(QStringLiteral("/auth/") + rawValue(provider), query),
            .verifier = pkce.verifier,
            .stop = {}};
}

/// Any page can send the browser to the callback's address, with an error or with a code of its own. So what fails
/// shows a message and lets the person begin anew, while the attempt itself stays open for the redirect that is the
/// server's.
QCoro::Task<> SignIn::run(QPointer<SignIn> self, Attempt attempt)
{
    BrowserReturn returned = co_await openPage(attempt);
    for (;;) {
        if (!self || attempt.stop.stop_requested())
            co_return;
        if (!returned.callback) {
            self->rest(returned.problem);
            co_return;
        }
        const CallbackResult result = parseCallback(*returned.callback);
        if (!self->isWanted(attempt)) {
            // The person has turned to another server.
        } else if (result.kind == CallbackResult::Kind::error) {
            self->rest(signInErrorMessage(result.value));
        } else {
            self->resume();
            const Exchange exchange = co_await exchangeCode(attempt, result.value);
            if (!self || attempt.stop.stop_requested())
                co_return;
            if (exchange.session) {
                self->m_surroundings.complete(attempt.client->baseURL(), *exchange.session);
                co_return;
            }
            self->rest(exchange.problem);
        }
        BrowserReturn another = co_await awaitAnotherReturn(attempt);
        returned = std::move(another);
    }
}

QCoro::Task<SignIn::BrowserReturn> SignIn::openPage(Attempt attempt)
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

QCoro::Task<SignIn::BrowserReturn> SignIn::awaitAnotherReturn(Attempt attempt)
{
    BrowserReturn returned;
    if (!attempt.nextCallback || attempt.stop.stop_requested())
        co_return returned;
    // Where it has ended, what failed before has been told.
    const WebAuthenticator::Return callback = co_await attempt.nextCallback();
    returned.callback = callback;
    co_return returned;
}

QCoro::Task<SignIn::Exchange> SignIn::exchangeCode(Attempt attempt, QString code)
{
    const APIClientPtr client = attempt.client;
    const Outcome<Session> session = co_await endpoints::exchangeCode(client, code, attempt.verifier);
    Exchange exchange;
    exchange.problem = session.error() ? session.error()->message() : problemWith(*session.value());
    if (!exchange.problem)
        exchange.session = *session.value();
    co_return exchange;
}

bool SignIn::isWanted(const Attempt &attempt) const
{
    return m_isUnderWay || m_servers.baseURL() == attempt.client->baseURL();
}

void SignIn::resume()
{
    setError(std::nullopt);
    setUnderWay(true);
}

void SignIn::rest(const std::optional<QString> &problem)
{
    m_page.clear();
    setUnderWay(false);
    // Where there is still no session, what failed now matters more than why the start found none.
    if (!m_surroundings.findSession() && problem)
        setError(problem);
}

void SignIn::close()
{
    m_attempt.request_stop();
    if (m_backend && m_backend->cancelAuthentication)
        m_backend->cancelAuthentication();
    m_page.clear();
    setUnderWay(false);
}

void SignIn::reset(const std::optional<QString> &error)
{
    setUnderWay(false);
    setError(error);
}

void SignIn::setUnderWay(bool isUnderWay)
{
    if (std::exchange(m_isUnderWay, isUnderWay) != isUnderWay)
        emit isSigningInChanged();
}

void SignIn::setError(const std::optional<QString> &error)
{
    if (m_error == error)
        return;
    m_error = error;
    emit signInErrorChanged();
}

} // namespace pingwell
