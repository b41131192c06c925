#pragma once

#include "api/wire_reader.h"
#include "model/member.h"

namespace pingwell {

/// The wire record of a workspace's member.
struct MemberDTO
{
    std::string_view id;
    std::string_view workspaceId;
    std::string_view email;
    std::string_view role;
    std::string_view status;
    std::optional<Instant> invitedAt;
    std::optional<std::string_view> name;
    std::optional<bool> isSelf;

    static MemberDTO read(WireObject object);
    [[nodiscard]] Member mapped(WireStrings &strings) const;
};

} // namespace pingwell
