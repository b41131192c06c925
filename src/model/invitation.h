#pragma once

#include "model/enumerations.h"
#include "model/instant.h"

#include <QString>

#include <optional>

namespace pingwell {

/// An invitation addressed to the signed-in person.
struct Invitation
{
    /// Names the invitation when it is accepted or declined.
    QString token;
    QString workspaceName;
    WorkspaceRole role = WorkspaceRole::member;
    std::optional<Instant> invitedAt;

    friend bool operator==(const Invitation &, const Invitation &) = default;
};

} // namespace pingwell
