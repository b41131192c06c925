#include "ui/settings_facts.h"

#include "time_format/time_format.h"
#include "ui/display_text.h"

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

} // namespace

AccountFacts accountFacts(const AppStore &store)
{
    const std::optional<Account> &account = store.account();
    if (!account)
        return {};
    AccountFacts facts;
    facts.isPresent = true;
    facts.name = displayName(account->name);
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
    facts.workspace = displayName(workspace->name);
    facts.canManage = workspace->canManage();
    facts.timeout = QString::number(workspace->responseTimeoutMinutes);
    facts.timeoutLabel = minutesText(workspace->responseTimeoutMinutes);
    facts.action = rawValue(workspace->effectiveTimeoutAction());
    for (const TimeoutAction action : allCases<TimeoutAction>()) {
        if (!isAllowed(action, workspace->kind))
            continue;
        facts.actions << rawValue(action);
        facts.actionLabels << actionLabel(action);
    }
    facts.actionDetail = actionDetail(workspace->effectiveTimeoutAction());
    return facts;
}

NotificationFacts notificationFacts(const AppStore &store)
{
    const NotificationSettings &settings = store.settings();
    NotificationFacts facts;
    facts.quietHours = settings.quietHoursEnabled;
    facts.quietFrom = settings.quietFrom;
    facts.quietFromLabel = displayLine(settings.quietFrom);
    facts.quietTo = settings.quietTo;
    facts.quietToLabel = displayLine(settings.quietTo);
    facts.digest = settings.digest;
    facts.sound = settings.sound;
    return facts;
}

} // namespace pingwell
