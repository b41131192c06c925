#pragma once

#include "api/wire_reader.h"
#include "model/invitation.h"

namespace pingwell {

/// The wire record of an invitation to the signed-in person.
struct InvitationDTO
{
    std::string_view token;
    std::optional<std::string_view> role;
    /// The workspace's name.
    std::optional<std::string_view> workspace;
    std::optional<Instant> invitedAt;

    static InvitationDTO read(WireObject object);
    [[nodiscard]] Invitation mapped(WireStrings &strings) const;
};

} // namespace pingwell
