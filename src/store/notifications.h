#pragma once

#include "api/dashboard.h"
#include "notify/alert_notifying.h"
#include "store/attention.h"
#include "store/left_asks.h"
#include "store/notification_mark.h"
#include "store/waiting_asks.h"

#include <memory>
#include <optional>

namespace pingwell {

/// What the person is told outside the windows: which alerts have been announced, which banners still ask, and what is
/// left to a window that they look at. Without a notifier nothing is shown, but what is new is reckoned all the same.
/// Main thread.
class Notifications
{
public:
    Notifications(std::shared_ptr<AlertNotifying> notifier, const std::shared_ptr<Preferences> &preferences);

    [[nodiscard]] bool areShown() const { return m_notifier != nullptr; }
    void setAttention(Attention attention) { m_attention = std::move(attention); }
    [[nodiscard]] const Attention &attention() const { return m_attention; }

    /// Announces what is new in `fresh` to the person `owner` who holds `known`; `present` is the service's time at
    /// this moment.
    void announceNew(const Dashboard &fresh, const QList<Alert> &known, const QString &owner, Instant present,
                     Instant now, bool hasLoaded);
    /// Announces the alert that the person has just made, where it is to be delivered.
    void announce(const Alert &alert, const std::optional<QString> &workspaceName, bool sound, bool canAnswer,
                  Instant present);
    /// The person goes by another name from now on.
    void handOver(const QString &from, const QString &to) { m_mark.handOver(from, to); }

    /// Takes note of what a killed run left on the screen, before the preferences forget whose it was.
    void findLeftAsks();
    /// What of it still waits in the session of `owner`, to be announced again, once; the rest is taken back.
    [[nodiscard]] QList<Alert> settleLeftAsks(const QString &owner, const QList<Alert> &alerts, Instant now);
    void announceAgain(const Alert &alert, const std::optional<QString> &workspaceName, bool canAnswer);

    /// Takes the buttons from the screen that ask for answers to what waits for none any more.
    void endAsks(const QList<Alert> &alerts, Instant now);
    /// The same where nothing but the time may have ended one.
    void endAsksBy(const QList<Alert> &alerts, Instant now);

    void withdraw(const QStringList &identifiers);
    void withdrawAll();
    /// An answer to `alert` was not accepted.
    void tellRefusal(const Alert &alert, const std::optional<QString> &workspaceName, const AnswerRefusal &refusal);
    /// An answer to an ask that the store doesn't hold any more was not accepted.
    void tellRefusalOfGone(const QString &alertID, const QString &reason);
    /// Shows a notification of the program's own, unless a window with the focus can tell the person.
    void tellUnlessWatching(const QString &identifier, const QString &title, const QString &message);

private:
    std::shared_ptr<AlertNotifying> m_notifier;
    NotificationMark m_mark;
    WaitingAsks m_waitingAsks;
    LeftAsks m_leftAsks;
    Attention m_attention;
};

} // namespace pingwell
