#pragma once

#include "api/outcome.h"
#include "async/clock.h"

#include <QCoroTask>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace pingwell {

/// Signs the person in through the system's browser: opens a page there and waits for its redirect to the program's own
/// scheme (RFC 8252). Any page can open an address of that scheme, so a redirect does not end an attempt: the caller
/// checks the redirect, then calls `cancel` or waits for the next one. No browser reports that its tab was closed, so
/// an attempt also ends when a new one begins, or after ten minutes. Main thread.
class WebAuthenticator
{
public:
    /// How long an attempt lasts.
    static constexpr std::chrono::minutes patience{10};

    /// `openURL` opens a page in the browser and returns whether a browser took it.
    WebAuthenticator(std::function<bool(const QUrl &)> openURL, std::shared_ptr<Clock> clock);
    ~WebAuthenticator();

    /// The redirect. None when the attempt ended without one: the person cancelled it or let it expire, and no message
    /// is needed.
    using Return = std::optional<QUrl>;

    /// Begins an attempt and resumes with its first redirect; with an error when no browser could be opened.
    QCoro::Task<Outcome<Return>> authenticate(QUrl url, QString callbackScheme);

    /// Resumes with the attempt's next redirect, which may already have arrived; with none when the attempt is over.
    QCoro::Task<Return> nextCallback();

    /// Handles a URL that the desktop passed to the program; returns whether an attempt waits for such a redirect.
    /// Other URLs and repeated redirects are ignored.
    bool handleCallback(const QUrl &url);

    /// Ends the attempt under way, if any.
    void cancel();

private:
    class Attempt;

    static QCoro::Task<Return> next(std::shared_ptr<Attempt> attempt);
    static QCoro::Task<> losePatience(std::weak_ptr<Attempt> attempt, std::shared_ptr<Clock> clock,
                                      std::stop_token stop);

    std::function<bool(const QUrl &)> m_openURL;
    std::shared_ptr<Clock> m_clock;
    std::shared_ptr<Attempt> m_attempt;
};

} // namespace pingwell
