#include "api/dashboard_dto.h"

#include "api/dashboard_bounds.h"

#include <algorithm>
#include <vector>

namespace pingwell {

namespace {

/// Whether the ask has neither an answer nor a time-out in the record; its deadline is not compared with the time.
bool isOpen(const AlertDTO &alert)
{
    return fromWord<AlertKind>(alert.kind) == AlertKind::ask && !alert.answer && !alert.timedOutAt;
}

/// The kept alerts in the order in which they came. The list is read twice, first to choose and then to map, so that
/// the alerts left out use no memory.
ListCount mapAlerts(const WireList<AlertDTO> &list, QList<Alert> &alerts, WireStrings &strings)
{
    std::vector<AlertRank> ranks;
    ListCount count = list.forEach([&ranks](const AlertDTO &alert) { ranks.push_back({isOpen(alert), alert.at}); });
    const std::vector<qsizetype> taken = alertsToTake(ranks, maximumAlerts);
    count.beyond = qint64(ranks.size() - taken.size());
    alerts.reserve(qsizetype(taken.size()));
    qsizetype place = 0;
    auto next = taken.begin();
    list.forEach([&](const AlertDTO &alert) {
        if (next == taken.end() || place++ != *next)
            return;
        ++next;
        alerts.append(alert.mapped(strings));
    });
    return count;
}

/// Members by workspace, each list in the order in which they came.
ListCount mapMembers(const WireList<MemberDTO> &list, QMap<QString, QList<Member>> &members, WireStrings &strings)
{
    qint64 seen = 0;
    ListCount count = list.forEach([&](const MemberDTO &member) {
        if (++seen <= maximumMembers)
            members[strings.shared(member.workspaceId)].append(member.mapped(strings));
    });
    count.beyond = std::max<qint64>(0, seen - maximumMembers);
    return count;
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
    DashboardCounts &counts = dashboard.counts;
    counts.workspaces = workspaces.mapTo(dashboard.workspaces, maximumWorkspaces, strings);
    counts.members = mapMembers(members, dashboard.members, strings);
    counts.topics = topics.mapTo(dashboard.topics, maximumTopics, strings);
    counts.alerts = mapAlerts(alerts, dashboard.alerts, strings);
    // The whole list of devices may be missing, and a device that can't be decoded is left out: neither is a reason to
    // lose the alerts.
    if (devices)
        counts.devices = devices->mapTo<UndecodableRecord>(dashboard.devices, maximumDevices, strings);
    if (settings)
        dashboard.settings = settings->mapped(strings);
    dashboard.plan = planName(plan);
    return dashboard;
}

} // namespace pingwell
