#include "model/workspace.h"

namespace pingwell {

bool isAllowed(TimeoutAction action, WorkspaceKind kind)
{
    return action != TimeoutAction::escalate || kind == WorkspaceKind::team;
}

TimeoutAction Workspace::effectiveTimeoutAction() const
{
    return isAllowed(timeoutAction, kind) ? timeoutAction : TimeoutAction::expire;
}

} // namespace pingwell
