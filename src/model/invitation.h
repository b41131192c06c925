#pragma once

#include "model/enumerations.h"
#include "model/instant.h"

#include <QString>

#include <optional>

namespace pingwell {

/// An invitation addressed to the signed-in person.
struct Invitation
{
    /// The id to accept or decline the invitation with.
    QString token;
    QString workspaceName;
    WorkspaceRole role = WorkspaceRole::member;
    std::optional<Instant> invitedAt;

    friend bool operator==(const Invitation &, const Invitation &) = default;
};

} // namespace pingwell
