#pragma once

#include "api/dashboard.h"
#include "api/member_dto.h"
#include "api/wire_reader.h"
#include "model/workspace.h"

namespace pingwell {

/// The wire record of a workspace.
struct WorkspaceDTO
{
    std::string_view id;
    std::string_view name;
    std::string_view kind;
    std::string_view role;
    std::optional<std::int64_t> responseTimeoutMinutes;
    std::optional<std::string_view> timeoutAction;

    static WorkspaceDTO read(WireObject object);
    [[nodiscard]] Workspace mapped(WireStrings &strings) const;
};

/// The wire record of the response to creating a workspace.
struct CreatedWorkspaceDTO
{
    WorkspaceDTO workspace;
    WireList<MemberDTO> members;

    static CreatedWorkspaceDTO read(WireObject object);
    [[nodiscard]] CreatedWorkspace mapped(WireStrings &strings) const;
};

} // namespace pingwell
