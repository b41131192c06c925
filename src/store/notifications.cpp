#include "store/notifications.h"

#include "store/notification_choice.h"

#include <QDateTime>

namespace pingwell {

namespace {

int localMinuteOfDay(Instant instant)
{
    const auto milliseconds = static_cast<qint64>(millisecondsFromInstant(instant));
    const QTime time = QDateTime::fromMSecsSinceEpoch(milliseconds).time();
    return time.hour() * 60 + time.minute();
}

} // namespace

Notifications::Notifications(std::shared_ptr<AlertNotifying> notifier, const std::shared_ptr<Preferences> &preferences)
    : m_notifier(std::move(notifier))
    , m_mark(preferences)
{
}

void Notifications::announceNew(const Dashboard &fresh, const QList<Alert> &known, const QString &owner,
                                Instant present, Instant now, bool hasLoaded)
{
    m_mark.claim(owner, present);
    QList<AlertToNotify> chosen;
    if (const auto after = m_mark.after())
        chosen = chooseAlertsToNotify(fresh, known,
                                      {.after = *after,
                                       .ahead = m_mark.ahead(),
                                       .now = now,
                                       .minuteOfDay = localMinuteOfDay(now),
                                       .hasLoaded = hasLoaded});
    m_mark.advance(fresh.alerts, present);
    if (!m_notifier)
        return;
    for (const AlertToNotify &notification : std::as_const(chosen))
        m_notifier->deliver(notification.alert, notification.workspaceName, notification.sound, notification.canAnswer);
}

void Notifications::announce(const Alert &alert, const std::optional<QString> &workspaceName, bool sound,
                             bool canAnswer, Instant present)
{
    m_mark.note(alert, present);
    if (alert.delivered && m_notifier)
        m_notifier->deliver(alert, workspaceName, sound, canAnswer);
}

void Notifications::findLeftAsks()
{
    if (m_notifier)
        m_leftAsks = LeftAsks(m_notifier->leftBehind(), m_mark.owner());
}

QList<Alert> Notifications::settleLeftAsks(const QString &owner, const QList<Alert> &alerts, Instant now)
{
    const LeftAsks::Fate fate = m_leftAsks.settle(owner, alerts, now);
    if (!fate.dropped.isEmpty())
        withdraw(fate.dropped);
    return fate.announced;
}

void Notifications::announceAgain(const Alert &alert, const std::optional<QString> &workspaceName, bool canAnswer)
{
    if (m_notifier)
        m_notifier->deliver(alert, workspaceName, false, canAnswer);
}

void Notifications::endAsks(const QList<Alert> &alerts, Instant now)
{
    const QStringList ended = m_waitingAsks.endedIn(alerts, now);
    if (!ended.isEmpty() && m_notifier)
        m_notifier->endAsks(ended);
}

void Notifications::endAsksBy(const QList<Alert> &alerts, Instant now)
{
    if (m_waitingAsks.mayEndBy(now))
        endAsks(alerts, now);
}

void Notifications::withdraw(const QStringList &identifiers)
{
    if (m_notifier)
        m_notifier->remove(identifiers);
}

void Notifications::withdrawAll()
{
    if (m_notifier)
        m_notifier->removeAll();
}

void Notifications::tellRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                                const AnswerRefusal &refusal)
{
    if (m_notifier)
        m_notifier->deliverRefusal(alert, workspaceName, refusal);
}

void Notifications::tellRefusalOfGone(const QString &alertID, const QString &reason)
{
    if (m_notifier)
        m_notifier->deliverMessage(alertID, QStringLiteral("Your answer didn't go through"), reason);
}

void Notifications::tellUnlessWatching(const QString &identifier, const QString &title, const QString &message)
{
    if (m_notifier && !m_attention.isOnWindow())
        m_notifier->deliverMessage(identifier, title, message);
}

} // namespace pingwell
