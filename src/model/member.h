#pragma once

#include "model/enumerations.h"
#include "model/instant.h"

#include <QString>

#include <optional>

namespace pingwell {

/// A person in a workspace, or one invited to it.
struct Member
{
    QString id;
    std::optional<QString> name;
    QString email;
    WorkspaceRole role = WorkspaceRole::member;
    MemberStatus status = MemberStatus::active;
    std::optional<Instant> invitedAt;
    /// The row is the signed-in person.
    bool isYou = false;

    friend bool operator==(const Member &, const Member &) = default;
};

} // namespace pingwell
