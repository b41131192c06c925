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
/// scheme (RFC 8252). Any page can open such an address, so a redirect does not end an attempt: who made it decides
/// whether it was the right one, and ends it by `cancel` or asks for the next. A browser tells nobody that its tab was
/// closed, so an attempt also ends by a new one, or after ten minutes. Main thread.
class WebAuthenticator
{
public:
    /// How long an attempt lasts.
    static constexpr std::chrono::minutes patience{10};

    /// `openURL` hands a page to the browser and says whether one took it.
    WebAuthenticator(std::function<bool(const QUrl &)> openURL, std::shared_ptr<Clock> clock);
    ~WebAuthenticator();

    /// What the browser brings back. None when the attempt ended without: the person gave the sign-in up, or let it
    /// lie, and there is nothing to say.
    using Return = std::optional<QUrl>;

    /// Begins an attempt and resumes with its first redirect; with an error when no browser could be opened.
    QCoro::Task<Outcome<Return>> authenticate(QUrl url, QString callbackScheme);

    /// Resumes with the next redirect of the attempt, which may have come already, or may be over.
    QCoro::Task<Return> nextCallback();

    /// Takes a URL the desktop handed to the program, and says whether an attempt waits for such a redirect. Any other
    /// URL is ignored; so is a redirect that was delivered twice.
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
