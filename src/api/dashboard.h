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

/// What became of the lists of a dashboard.
struct DashboardCounts
{
    ListCount alerts;
    ListCount workspaces;
    ListCount members;
    ListCount topics;
    ListCount devices;

    friend bool operator==(const DashboardCounts &, const DashboardCounts &) = default;
};

/// Everything the service knows of the person, already in the program's own terms.
struct Dashboard
{
    QList<Workspace> workspaces;
    /// Members by workspace id, each list in the service's order.
    QMap<QString, QList<Member>> members;
    QList<Topic> topics;
    QList<Alert> alerts;
    QList<Device> devices;
    /// `quietHoursEnabled` is not the service's to say and stands at its default here.
    NotificationSettings settings;
    QString plan;
    DashboardCounts counts;
};

/// An answer to the dashboard request.
struct FetchedDashboard
{
    /// None when the body is byte for byte the one the caller already knows.
    std::optional<Dashboard> dashboard;
    QByteArray body;
    /// When the service answered, by its own clock and to the second; none when it did not say.
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

/// A record with the sentence the service sent along for the person.
template<typename Record>
struct WithMessage
{
    std::optional<QString> message;
    Record record;
};

} // namespace pingwell
