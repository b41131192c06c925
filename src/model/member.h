#pragma once

#include "model/enumerations.h"
#include "model/instant.h"

#include <QString>

#include <optional>

namespace pingwell {

/// A person who belongs to a workspace or is invited to it.
struct Member
{
    QString id;
    std::optional<QString> name;
    QString email;
    WorkspaceRole role = WorkspaceRole::member;
    MemberStatus status = MemberStatus::active;
    std::optional<Instant> invitedAt;
    /// Whether the member is the signed-in person.
    bool isYou = false;

    friend bool operator==(const Member &, const Member &) = default;
};

} // namespace pingwell
