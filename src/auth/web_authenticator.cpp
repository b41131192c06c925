#include "auth/web_authenticator.h"

#include "api/api_error.h"
#include "async/launch.h"
#include "auth/callback_result.h"

#include <QList>

#include <coroutine>
#include <optional>
#include <stop_token>
#include <utility>

namespace pingwell {

namespace {

// How many redirects may wait while one is checked; a page that sends more is trying to block the sign-in.
constexpr qsizetype mostWaiting = 32;

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

/// One sign-in in the browser: the redirects that have arrived, and the coroutine that waits for them.
class WebAuthenticator::Attempt
{
public:
    explicit Attempt(QString callbackScheme)
        : scheme(std::move(callbackScheme))
    {
    }

    void deliver(const QUrl &redirect)
    {
        const bool isBeingDealtWith = !m_awaiting && redirect == m_taken;
        if (m_isOver || isBeingDealtWith || m_redirects.contains(redirect) || m_redirects.size() >= mostWaiting)
            return;
        m_redirects << redirect;
        wake();
    }

    void end()
    {
        if (m_isOver)
            return;
        m_isOver = true;
        m_redirects.clear();
        patience.request_stop();
        wake();
    }

    /// Removes the oldest redirect and returns it; none when the attempt is over.
    std::optional<QUrl> take()
    {
        if (m_redirects.isEmpty())
            return std::nullopt;
        m_taken = m_redirects.takeFirst();
        return m_taken;
    }

    [[nodiscard]] bool isOver() const { return m_isOver; }

    [[nodiscard]] bool await_ready() const { return m_isOver || !m_redirects.isEmpty(); }
    void await_suspend(std::coroutine_handle<> awaiting) { m_awaiting = awaiting; }
    void await_resume() const {}

    const QString scheme;
    std::stop_source patience;

private:
    void wake()
    {
        const std::coroutine_handle<> awaiting = std::exchange(m_awaiting, nullptr);
        if (awaiting)
            awaiting.resume();
    }

    bool m_isOver = false;
    QList<QUrl> m_redirects;
    QUrl m_taken;
    std::coroutine_handle<> m_awaiting;
};

namespace {

/// Awaits a shared attempt; QCoro copies what it awaits.
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

QCoro::Task<Outcome<WebAuthenticator::Return>> WebAuthenticator::authenticate(QUrl url, QString callbackScheme)
{
    cancel();
    const auto attempt = std::make_shared<Attempt>(callbackScheme);
    m_attempt = attempt;
    if (!m_openURL(url)) {
        cancel();
        co_return cannotOpen();
    }
    launch("sign-in limit", losePatience(attempt, m_clock, attempt->patience.get_token()));
    Return redirect = co_await next(attempt);
    co_return redirect;
}

QCoro::Task<WebAuthenticator::Return> WebAuthenticator::nextCallback()
{
    if (!m_attempt)
        co_return std::nullopt;
    const std::shared_ptr<Attempt> attempt = m_attempt;
    Return redirect = co_await next(attempt);
    co_return redirect;
}

/// A coroutine of the attempt, not of the authenticator, which may be destroyed before the coroutine resumes.
QCoro::Task<WebAuthenticator::Return> WebAuthenticator::next(std::shared_ptr<Attempt> attempt)
{
    Shared<Attempt> redirects{attempt};
    co_await redirects;
    Return redirect = attempt->take();
    co_return redirect;
}

QCoro::Task<> WebAuthenticator::losePatience(std::weak_ptr<Attempt> attempt, std::shared_ptr<Clock> clock,
                                             std::stop_token stop)
{
    co_await clock->sleep(patience, stop);
    if (const auto waiting = attempt.lock())
        waiting->end();
}

bool WebAuthenticator::handleCallback(const QUrl &url)
{
    const std::shared_ptr<Attempt> attempt = m_attempt;
    if (!attempt || attempt->isOver() || !isCallback(url, attempt->scheme))
        return false;
    attempt->deliver(url);
    return true;
}

void WebAuthenticator::cancel()
{
    const auto attempt = std::exchange(m_attempt, nullptr);
    if (attempt)
        attempt->end();
}

} // namespace pingwell
