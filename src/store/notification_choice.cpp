#include "store/notification_choice.h"

#include <algorithm>

namespace pingwell {

namespace {

constexpr Seconds firstLookBack{3600};

std::optional<qint64> minuteOfDay(const QString &text)
{
    QList<qint64> numbers;
    for (const QString &piece : text.split(u':', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int number = piece.toInt(&isNumber, 10);
        if (isNumber)
            numbers << number;
    }
    if (numbers.size() != 2)
        return std::nullopt;
    return numbers.at(0) * 60 + numbers.at(1);
}

bool isNews(const Alert &alert, const NotificationMoment &moment)
{
    if (alert.at <= moment.after || !alert.delivered || alert.read)
        return false;
    if (alert.kind == AlertKind::ask && !alert.isWaiting(moment.now))
        return false;
    return moment.hasLoaded || alert.at > moment.now - firstLookBack;
}

QList<Alert> newestNews(const QList<Alert> &fresh, const QList<Alert> &known, const NotificationMoment &moment)
{
    QList<Alert> news;
    std::copy_if(fresh.begin(), fresh.end(), std::back_inserter(news),
                 [&moment](const Alert &alert) { return isNews(alert, moment); });
    if (news.isEmpty())
        return news;
    QSet<QString> knownIDs = moment.ahead;
    knownIDs.reserve(known.size() + moment.ahead.size());
    for (const Alert &alert : known)
        knownIDs.insert(alert.id);
    news.removeIf([&knownIDs](const Alert &alert) { return knownIDs.contains(alert.id); });
    std::stable_sort(news.begin(), news.end(),
                     [](const Alert &left, const Alert &right) { return left.at > right.at; });
    return news.first(std::min(news.size(), maximumNotificationsPerRefresh));
}

bool respectsQuietHours(const Alert &alert, const QList<Topic> &topics)
{
    const auto topic = std::find_if(topics.begin(), topics.end(), [&alert](const Topic &candidate) {
        return candidate.workspaceId == alert.workspaceId && candidate.name == alert.topic;
    });
    return topic != topics.end() && topic->quietHours && alert.priority != Priority::critical;
}

AlertToNotify announcementOf(const Alert &alert, const QList<Workspace> &workspaces, bool sound)
{
    AlertToNotify announcement{.alert = alert, .workspaceName = std::nullopt, .sound = sound, .canAnswer = false};
    const auto workspace = std::find_if(workspaces.begin(), workspaces.end(), [&alert](const Workspace &candidate) {
        return candidate.id == alert.workspaceId;
    });
    if (workspace == workspaces.end())
        return announcement;
    if (workspaces.size() > 1)
        announcement.workspaceName = workspace->name;
    announcement.canAnswer = workspace->role != WorkspaceRole::viewer;
    return announcement;
}

} // namespace

bool isQuiet(const NotificationSettings &settings, int minute)
{
    if (!settings.quietHoursEnabled)
        return false;
    const auto from = minuteOfDay(settings.quietFrom);
    const auto to = minuteOfDay(settings.quietTo);
    if (!from || !to || *from == *to)
        return false;
    if (*from < *to)
        return *from <= minute && minute < *to;
    return minute >= *from || minute < *to;
}

QList<AlertToNotify> chooseAlertsToNotify(const Dashboard &fresh, const QList<Alert> &known,
                                          const NotificationMoment &moment)
{
    const bool quiet = isQuiet(fresh.settings, moment.minuteOfDay);
    QList<AlertToNotify> chosen;
    for (const Alert &alert : newestNews(fresh.alerts, known, moment)) {
        const bool silenced = quiet && respectsQuietHours(alert, fresh.topics);
        chosen << announcementOf(alert, fresh.workspaces, fresh.settings.sound && !silenced);
    }
    return chosen;
}

} // namespace pingwell
