#include "api/dashboard_dto.h"

namespace pingwell {

DashboardDTO DashboardDTO::read(WireObject object)
{
    DashboardDTO dto;
    dto.workspaces = required(object.records<WorkspaceDTO>("workspaces"));
    dto.members = required(object.records<MemberDTO>("members"));
    dto.topics = required(object.records<TopicDTO>("topics"));
    dto.alerts = required(object.records<AlertDTO>("alerts"));
    dto.devices = object.records<DeviceDTO>("devices");
    dto.settings = object.record<SettingsDTO>("settings");
    dto.plan = object.record<EntitlementsDTO>("plan");
    return dto;
}

Dashboard DashboardDTO::mapped(WireStrings &strings) const
{
    Dashboard dashboard;
    dashboard.workspaces = mappedList(workspaces, strings);
    for (const MemberDTO &member : members)
        dashboard.members[strings.shared(member.workspaceId)].append(member.mapped(strings));
    dashboard.topics = mappedList(topics, strings);
    dashboard.alerts = mappedList(alerts, strings);
    if (devices)
        dashboard.devices = mappedList(*devices, strings);
    if (settings)
        dashboard.settings = settings->mapped(strings);
    dashboard.plan = planName(plan);
    return dashboard;
}

} // namespace pingwell
