#pragma once

#include "model/enumerations.h"

#include <QString>

#include <cstdint>

namespace pingwell {

/// Whether a workspace of that kind may use the action: only a team has admins to escalate to.
[[nodiscard]] bool isAllowed(TimeoutAction action, WorkspaceKind kind);

/// A place to which agents post alerts, with the signed-in person's role in it.
struct Workspace
{
    QString id;
    QString name;
    WorkspaceKind kind = WorkspaceKind::personal;
    WorkspaceRole role = WorkspaceRole::viewer;
    /// How long an ask waits for a reply.
    std::int64_t responseTimeoutMinutes = 30;
    TimeoutAction timeoutAction = TimeoutAction::expire;

    friend bool operator==(const Workspace &, const Workspace &) = default;

    /// Whether the person may change the workspace and its members.
    [[nodiscard]] bool canManage() const { return role == WorkspaceRole::owner || role == WorkspaceRole::admin; }

    /// The stored action; in a workspace without admins, escalating is replaced by expiring.
    [[nodiscard]] TimeoutAction effectiveTimeoutAction() const;
};

} // namespace pingwell
