#include "store/outcome_text.h"

#include "text/time_format.h"

namespace pingwell {

namespace {

/// What happened, in the words of the settings: the configured actions and the reported outcomes are the same three.
TimeoutAction outcomeOf(const Alert &alert, const std::optional<Workspace> &own)
{
    if (alert.outcome == u"default")
        return TimeoutAction::default_;
    if (alert.outcome == u"escalated")
        return TimeoutAction::escalate;
    if (alert.outcome == u"expired")
        return TimeoutAction::expire;
    const TimeoutAction action = own ? own->effectiveTimeoutAction() : TimeoutAction::expire;
    // An ask answered by text has no first option to continue with.
    if (action == TimeoutAction::default_ && alert.acceptsText())
        return TimeoutAction::expire;
    return action;
}

QString ending(TimeoutAction outcome, const Alert &alert)
{
    switch (outcome) {
    case TimeoutAction::expire:
        return QStringLiteral(" — the agent was told nobody answered.");
    case TimeoutAction::escalate:
        return QStringLiteral(" — escalated to workspace admins.");
    case TimeoutAction::default_:
        return QStringLiteral(" — the agent continued with “") + alert.actions.value(0) + QStringLiteral("”.");
    }
    return {};
}

} // namespace

QString outcomeText(const Alert &alert, const std::optional<Workspace> &own, const std::optional<Workspace> &active)
{
    const std::int64_t fallback = active ? active->responseTimeoutMinutes : 0;
    const std::int64_t minutes = alert.responseWindowMinutes().value_or(fallback);
    return QStringLiteral("No reply in ") + durationText(minutes) + ending(outcomeOf(alert, own), alert);
}

} // namespace pingwell
