#pragma once

#include "api/list_count.h"
#include "model/account.h"
#include "model/alert.h"
#include "model/device.h"
#include "model/instant.h"
#include "model/member.h"
#include "model/notification_settings.h"
#include "model/topic.h"
#include "model/workspace.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace pingwell {

/// For each list of a dashboard, how many records came and how many were left out.
struct DashboardCounts
{
    ListCount alerts;
    ListCount workspaces;
    ListCount members;
    ListCount topics;
    ListCount devices;

    friend bool operator==(const DashboardCounts &, const DashboardCounts &) = default;
};

/// Everything the service knows about the person, as model values.
struct Dashboard
{
    QList<Workspace> workspaces;
    /// Members by workspace id, each list in the service's order.
    QMap<QString, QList<Member>> members;
    QList<Topic> topics;
    QList<Alert> alerts;
    QList<Device> devices;
    /// `quietHoursEnabled` keeps its default here: it is stored on this machine, and the service does not send it.
    NotificationSettings settings;
    QString plan;
    DashboardCounts counts;
};

/// The response to the dashboard request.
struct FetchedDashboard
{
    /// None when the body is byte for byte equal to the one the caller passed as known.
    std::optional<Dashboard> dashboard;
    QByteArray body;
    /// When the service sent the response, by its own clock and to the second; none when the response has no date.
    std::optional<Instant> date = std::nullopt;
};

/// A session as the service describes it.
struct Session
{
    std::optional<QString> token;
    Account account;
};

/// A workspace just created, with its first members.
struct CreatedWorkspace
{
    Workspace workspace;
    QList<Member> members;
};

/// A record, and the sentence for the person that the service sent with it.
template<typename Record>
struct WithMessage
{
    std::optional<QString> message;
    Record record;
};

} // namespace pingwell
