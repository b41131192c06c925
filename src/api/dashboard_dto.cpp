#include "api/dashboard_dto.h"

namespace pingwell {

namespace {

/// Devices are no part the dashboard can't do without: a list that makes no sense counts as missing.
QList<Device> mappedDevices(const std::optional<WireList<DeviceDTO>> &devices, WireStrings &strings)
{
    if (!devices)
        return {};
    try {
        return devices->mapped(strings);
    } catch (const UndecodableRecord &) {
        return {};
    }
}

} // namespace

DashboardDTO DashboardDTO::read(WireObject object)
{
    return {.workspaces = required(object.list<WorkspaceDTO>("workspaces")),
            .members = required(object.list<MemberDTO>("members")),
            .topics = required(object.list<TopicDTO>("topics")),
            .alerts = required(object.list<AlertDTO>("alerts")),
            .devices = object.list<DeviceDTO>("devices"),
            .settings = object.record<SettingsDTO>("settings"),
            .plan = object.record<EntitlementsDTO>("plan")};
}

Dashboard DashboardDTO::mapped(WireStrings &strings) const
{
    Dashboard dashboard;
    dashboard.workspaces = workspaces.mapped(strings);
    members.forEach([&dashboard, &strings](const MemberDTO &member) {
        dashboard.members[strings.shared(member.workspaceId)].append(member.mapped(strings));
    });
    dashboard.topics = topics.mapped(strings);
    dashboard.alerts = alerts.mapped(strings);
    dashboard.devices = mappedDevices(devices, strings);
    if (settings)
        dashboard.settings = settings->mapped(strings);
    dashboard.plan = planName(plan);
    return dashboard;
}

} // namespace pingwell
