#pragma once

#include "async/clock.h"

#include <QCoroTask>
#include <QString>
#include <QUrl>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>

namespace pingwell {

/// The person gave a sign-in up, or let it lie. Nothing went wrong, and there is nothing to say.
class SignInCancelled final : public std::exception
{
public:
    [[nodiscard]] const char *what() const noexcept override { return "the sign-in was cancelled"; }
};

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

    /// Begins an attempt and resumes with its first redirect. Throws `SignInCancelled` when the attempt ends without
    /// one, and an `APIError` worded for the person when no browser could be opened.
    QCoro::Task<QUrl> authenticate(QUrl url, QString callbackScheme);

    /// Resumes with the next redirect of the attempt, which may have come already. Throws `SignInCancelled` when it
    /// ends, or has ended, without one.
    QCoro::Task<QUrl> nextCallback();

    /// Takes a URL the desktop handed to the program, and says whether an attempt waits for such a redirect. Any other
    /// URL is ignored; so is a redirect that was delivered twice.
    bool handleCallback(const QUrl &url);

    /// Ends the attempt under way, if any.
    void cancel();

private:
    class Attempt;

    static QCoro::Task<QUrl> next(std::shared_ptr<Attempt> attempt);
    static QCoro::Task<> losePatience(std::weak_ptr<Attempt> attempt, std::shared_ptr<Clock> clock,
                                      std::stop_token stop);

    std::function<bool(const QUrl &)> m_openURL;
    std::shared_ptr<Clock> m_clock;
    std::shared_ptr<Attempt> m_attempt;
};

} // namespace pingwell
