#pragma once

#include "api/dashboard.h"
#include "store/backend.h"
#include "store/server_choice.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace pingwell {

/// What lies between the press of a button on the sign-in screen and the session: at most one attempt, which stays open
/// for another redirect after one that failed. Main thread.
class SignIn : public QObject
{
    Q_OBJECT

public:
    /// What becomes of an attempt is the business of whoever keeps the session.
    struct Surroundings
    {
        /// The server opened a session.
        std::function<void(const QUrl &baseURL, const Session &session)> complete;
        /// The attempt rests. Whether a session stands all the same, which the keyring may have given out meanwhile.
        std::function<bool()> findSession;
    };

    SignIn(std::shared_ptr<Backend> backend, const ServerChoice &servers, Surroundings surroundings);
    ~SignIn() override;

    [[nodiscard]] bool isUnderWay() const { return m_isUnderWay; }
    /// Why there is no session, in words for the sign-in screen.
    [[nodiscard]] const std::optional<QString> &error() const { return m_error; }
    /// The page that is waited for; empty while nobody signs in.
    [[nodiscard]] const QUrl &page() const { return m_page; }

    /// Opens the browser, unless an attempt is under way.
    void start(AuthProvider provider);
    /// Ends the attempt, also one that waits unseen for the browser to come back once more.
    void close();
    void setError(const std::optional<QString> &error);
    /// A session is over, for this reason if there is something to say: the screen is as at the start.
    void reset(const std::optional<QString> &error);

signals:
    void isSigningInChanged();
    void signInErrorChanged();

private:
    struct Attempt;
    struct BrowserReturn;
    struct Exchange;

    [[nodiscard]] Attempt prepare(const QUrl &baseURL, AuthProvider provider) const;
    static QCoro::Task<> run(QPointer<SignIn> self, Attempt attempt);
    static QCoro::Task<BrowserReturn> openPage(Attempt attempt);
    static QCoro::Task<BrowserReturn> awaitAnotherReturn(Attempt attempt);
    static QCoro::Task<Exchange> exchangeCode(Attempt attempt, QString code);
    /// Whether a callback that came after an earlier one failed still counts.
    [[nodiscard]] bool isWanted(const Attempt &attempt) const;
    void resume();
    void rest(const std::optional<QString> &problem);
    void setUnderWay(bool isUnderWay);

    std::shared_ptr<Backend> m_backend;
    const ServerChoice &m_servers;
    Surroundings m_surroundings;
    bool m_isUnderWay = false;
    std::optional<QString> m_error;
    QUrl m_page;
    std::stop_source m_attempt{std::nostopstate};
};

} // namespace pingwell
