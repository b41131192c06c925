#include "ui/settings/settings_facts.h"

#include "text/display_text.h"
#include "text/time_format.h"

#include <QTime>

#include <set>

namespace pingwell {

namespace {

QString actionLabel(TimeoutAction action)
{
    switch (action) {
    case TimeoutAction::expire:
        break;
    case TimeoutAction::default_:
        return QStringLiteral("Use first option");
    case TimeoutAction::escalate:
        return QStringLiteral("Escalate to team");
    }
    return QStringLiteral("Expire");
}

QString actionDetail(TimeoutAction action)
{
    switch (action) {
    case TimeoutAction::expire:
        break;
    case TimeoutAction::default_:
        return QStringLiteral("The agent gets the first (safest) button, e.g. “Deny”.");
    case TimeoutAction::escalate:
        return QStringLiteral("Re-sent to every admin in the workspace with the same time limit.");
    }
    return QStringLiteral("The agent is told nobody answered and decides what to do.");
}

QString counted(std::int64_t count, const QString &unit)
{
    return QString::number(count) + u' ' + unit + (count == 1 ? QString() : QStringLiteral("s"));
}

/// The minutes in full, where `minutesText` leaves out those beyond the hour: another client may have set any number.
QString exactMinutesText(std::int64_t minutes)
{
    if (minutes < 60)
        return counted(minutes, QStringLiteral("minute"));
    const QString hours = counted(minutes / 60, QStringLiteral("hour"));
    return minutes % 60 == 0 ? hours : hours + u' ' + counted(minutes % 60, QStringLiteral("minute"));
}

Choices timeoutChoices(std::int64_t inForce)
{
    const std::set<std::int64_t> usual{5, 15, 30, 60, 240, 1440};
    std::set<std::int64_t> all = usual;
    all.insert(inForce);
    Choices choices;
    for (const std::int64_t minutes : all) {
        choices.values << QString::number(minutes);
        choices.labels << (usual.contains(minutes) ? minutesText(minutes) : exactMinutesText(minutes));
    }
    return choices;
}

Choices actionChoices(WorkspaceKind kind)
{
    Choices choices;
    for (const TimeoutAction action : allCases<TimeoutAction>()) {
        if (!isAllowed(action, kind))
            continue;
        choices.values << rawValue(action);
        choices.labels << actionLabel(action);
    }
    return choices;
}

Choices hourChoices(const QString &inForce)
{
    Choices choices{hourLabels(), hourLabels()};
    if (inForce.isEmpty() || choices.values.contains(inForce))
        return choices;
    const QTime time = QTime::fromString(inForce, QStringLiteral("H:m"));
    const qsizetype place = time.isValid() ? time.hour() + 1 : choices.values.size();
    choices.values.insert(place, inForce);
    choices.labels.insert(place, displayLine(inForce));
    return choices;
}

} // namespace

AccountFacts accountFacts(const AppStore &store)
{
    const std::optional<Account> &account = store.account();
    if (!account)
        return {};
    AccountFacts facts;
    facts.isPresent = true;
    facts.name = visibleName(account->name);
    facts.email = displayLine(account->email);
    facts.provider = account->provider == AuthProvider::github ? QStringLiteral("GitHub") : QStringLiteral("Google");
    facts.plan = displayName(account->plan);
    return facts;
}

ResponseTimeFacts responseTimeFacts(const AppStore &store)
{
    const std::optional<Workspace> workspace = store.activeWorkspace();
    if (!workspace)
        return {};
    ResponseTimeFacts facts;
    facts.isPresent = true;
    facts.workspace = visibleName(workspace->name);
    facts.canManage = workspace->canManage();
    facts.timeout = QString::number(workspace->responseTimeoutMinutes);
    facts.timeouts = timeoutChoices(workspace->responseTimeoutMinutes);
    facts.action = rawValue(workspace->effectiveTimeoutAction());
    facts.actions = actionChoices(workspace->kind);
    facts.actionDetail = actionDetail(workspace->effectiveTimeoutAction());
    return facts;
}

NotificationFacts notificationFacts(const AppStore &store)
{
    const NotificationSettings &settings = store.settings();
    NotificationFacts facts;
    facts.quietHours = settings.quietHoursEnabled;
    facts.quietFrom = settings.quietFrom;
    facts.quietFromChoices = hourChoices(settings.quietFrom);
    facts.quietTo = settings.quietTo;
    facts.quietToChoices = hourChoices(settings.quietTo);
    facts.digest = settings.digest;
    facts.sound = settings.sound;
    return facts;
}

} // namespace pingwell
