#pragma once

#include "api/alert_dto.h"
#include "api/dashboard.h"
#include "api/device_dto.h"
#include "api/member_dto.h"
#include "api/session_dto.h"
#include "api/settings_dto.h"
#include "api/topic_dto.h"
#include "api/workspace_dto.h"

namespace pingwell {

/// The wire record of the dashboard.
struct DashboardDTO
{
    WireList<WorkspaceDTO> workspaces;
    WireList<MemberDTO> members;
    WireList<TopicDTO> topics;
    WireList<AlertDTO> alerts;
    std::optional<WireList<DeviceDTO>> devices;
    std::optional<SettingsDTO> settings;
    std::optional<EntitlementsDTO> plan;

    static DashboardDTO read(WireObject object);
    [[nodiscard]] Dashboard mapped(WireStrings &strings) const;
};

} // namespace pingwell
