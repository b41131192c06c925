#include "store/notification_mark.h"

#include "desktop/preference_keys.h"

#include <QCryptographicHash>

#include <algorithm>

namespace pingwell {

namespace {

/// A service may date as many alerts into the future as it likes; the preferences stay small.
constexpr qsizetype mostAhead = 256;

QStringList laterThan(Instant now, const QList<Alert> &alerts)
{
    QStringList later;
    for (const Alert &alert : alerts) {
        if (alert.at > now && later.size() < mostAhead)
            later << alert.id;
    }
    return later;
}

} // namespace

NotificationMark::NotificationMark(std::shared_ptr<Preferences> preferences)
    : m_preferences(std::move(preferences))
{
}

void NotificationMark::claim(const QString &owner, Instant now)
{
    const auto before = m_preferences->string(preference_keys::lastNotifiedOwner);
    if (!owner.isEmpty() && before != owner) {
        if (before) {
            m_preferences->remove(preference_keys::lastNotifiedAt);
            setAhead({});
        }
        m_preferences->setString(preference_keys::lastNotifiedOwner, owner);
    }
    const auto mark = after();
    if (mark && *mark > now)
        m_preferences->setNumber(preference_keys::lastNotifiedAt, millisecondsFromInstant(now));
}

void NotificationMark::handOver(const QString &from, const QString &to)
{
    if (!from.isEmpty() && !to.isEmpty() && from != to &&
        m_preferences->string(preference_keys::lastNotifiedOwner) == from)
        m_preferences->setString(preference_keys::lastNotifiedOwner, to);
}

QString NotificationMark::owner() const
{
    return m_preferences->string(preference_keys::lastNotifiedOwner).value_or(QString());
}

std::optional<Instant> NotificationMark::after() const
{
    const auto milliseconds = m_preferences->number(preference_keys::lastNotifiedAt);
    return milliseconds ? std::optional(instantFromMilliseconds(*milliseconds)) : std::nullopt;
}

QSet<QString> NotificationMark::ahead() const
{
    const auto written = m_preferences->strings(preference_keys::notifiedAhead);
    return written ? QSet<QString>(written->begin(), written->end()) : QSet<QString>();
}

void NotificationMark::advance(const QList<Alert> &alerts, Instant now)
{
    moveTo(alerts, now);
    setAhead(laterThan(now, alerts));
}

void NotificationMark::note(const Alert &alert, Instant now)
{
    moveTo({alert}, now);
    if (alert.at > now)
        setAhead(ahead().values() << alert.id);
}

void NotificationMark::moveTo(const QList<Alert> &alerts, Instant now)
{
    const auto before = after();
    std::optional<Instant> mark = before;
    for (const Alert &alert : alerts) {
        if (alert.at <= now)
            mark = std::max(mark.value_or(alert.at), alert.at);
    }
    const Instant moved = mark.value_or(now);
    if (before != moved)
        m_preferences->setNumber(preference_keys::lastNotifiedAt, millisecondsFromInstant(moved));
}

void NotificationMark::setAhead(const QStringList &alertIDs)
{
    if (QSet<QString>(alertIDs.begin(), alertIDs.end()) == ahead())
        return;
    if (alertIDs.isEmpty())
        m_preferences->remove(preference_keys::notifiedAhead);
    else
        m_preferences->setStrings(preference_keys::notifiedAhead, alertIDs);
}

QString notificationMarkOwner(const QUrl &server, const Account &account)
{
    if (account.email.isEmpty())
        return {};
    const QString name = server.toString(QUrl::FullyEncoded) + u'\n' + account.email.toLower();
    return QString::fromLatin1(QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256).toHex());
}

} // namespace pingwell
