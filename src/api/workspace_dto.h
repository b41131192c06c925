#pragma once

#include "api/dashboard.h"
#include "api/member_dto.h"
#include "api/wire_reader.h"
#include "model/workspace.h"

namespace pingwell {

/// A workspace as it travels.
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

/// The answer to the creation of a workspace.
struct CreatedWorkspaceDTO
{
    WorkspaceDTO workspace;
    WireList<MemberDTO> members;

    static CreatedWorkspaceDTO read(WireObject object);
    [[nodiscard]] CreatedWorkspace mapped(WireStrings &strings) const;
};

} // namespace pingwell
