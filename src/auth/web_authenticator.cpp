#include "auth/web_authenticator.h"

#include "api/api_error.h"
#include "async/launch.h"
#include "auth/callback_result.h"

#include <coroutine>
#include <optional>
#include <stop_token>

namespace pingwell {

namespace {

bool isCallback(const QUrl &url, const QString &scheme)
{
    const QUrl expected(signInCallbackURL);
    return url.isValid() && url.scheme() == scheme && url.host() == expected.host() && url.path() == expected.path();
}

APIError cannotOpen()
{
    return APIError(0, QStringLiteral("auth_session"), QStringLiteral("Couldn't open the sign-in window."));
}

} // namespace

/// One wait for a redirect. Ends once, with the redirect or without.
class WebAuthenticator::Attempt
{
public:
    explicit Attempt(QString callbackScheme)
        : scheme(std::move(callbackScheme))
    {
    }

    void finish(std::optional<QUrl> redirect)
    {
        if (m_finished)
            return;
        m_finished = true;
        m_redirect = std::move(redirect);
        patience.request_stop();
        if (m_awaiting)
            m_awaiting.resume();
    }

    [[nodiscard]] const std::optional<QUrl> &redirect() const { return m_redirect; }

    [[nodiscard]] bool await_ready() const { return m_finished; }
    void await_suspend(std::coroutine_handle<> awaiting) { m_awaiting = awaiting; }
    void await_resume() const {}

    const QString scheme;
    std::stop_source patience;

private:
    bool m_finished = false;
    std::optional<QUrl> m_redirect;
    std::coroutine_handle<> m_awaiting;
};

namespace {

/// Awaits what is shared with others; QCoro copies its awaitables.
template<typename Awaited>
struct Shared
{
    std::shared_ptr<Awaited> awaited;

    [[nodiscard]] bool await_ready() const { return awaited->await_ready(); }
    void await_suspend(std::coroutine_handle<> awaiting) { awaited->await_suspend(awaiting); }
    void await_resume() const {}
};

} // namespace

WebAuthenticator::WebAuthenticator(std::function<bool(const QUrl &)> openURL, std::shared_ptr<Clock> clock)
    : m_openURL(std::move(openURL))
    , m_clock(std::move(clock))
{
}

WebAuthenticator::~WebAuthenticator()
{
    cancel();
}

QCoro::Task<QUrl> WebAuthenticator::authenticate(QUrl url, QString callbackScheme)
{
    cancel();
    const auto attempt = std::make_shared<Attempt>(callbackScheme);
    m_attempt = attempt;
    if (!m_openURL(url)) {
        cancel();
        throw cannotOpen();
    }
    launch("sign-in limit", losePatience(attempt, m_clock, attempt->patience.get_token()));
    Shared<Attempt> redirect{attempt};
    co_await redirect;
    // This object may be gone by now; the attempt is not.
    if (!attempt->redirect())
        throw SignInCancelled();
    co_return *attempt->redirect();
}

QCoro::Task<> WebAuthenticator::losePatience(std::weak_ptr<Attempt> attempt, std::shared_ptr<Clock> clock,
                                             std::stop_token stop)
{
    co_await clock->sleep(patience, stop);
    if (const auto waiting = attempt.lock())
        waiting->finish(std::nullopt);
}

void WebAuthenticator::handleCallback(const QUrl &url)
{
    if (!m_attempt || !isCallback(url, m_attempt->scheme))
        return;
    const auto attempt = std::exchange(m_attempt, nullptr);
    attempt->finish(url);
}

void WebAuthenticator::cancel()
{
    const auto attempt = std::exchange(m_attempt, nullptr);
    if (attempt)
        attempt->finish(std::nullopt);
}

} // namespace pingwell
