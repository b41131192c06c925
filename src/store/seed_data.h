#pragma once

#include "model/account.h"
#include "model/alert.h"
#include "model/device.h"
#include "model/member.h"
#include "model/notification_settings.h"
#include "model/topic.h"
#include "model/workspace.h"

#include <QList>
#include <QMap>
#include <QString>

namespace pingwell {

/// What a store starts from: nothing in live mode, a made-up day in the demo.
struct SeedData
{
    QList<Workspace> workspaces;
    /// By workspace id.
    QMap<QString, QList<Member>> members;
    QList<Alert> alerts;
    QList<Topic> topics;
    QList<Device> devices;
    NotificationSettings settings;
};

/// The person whom the demo shows.
[[nodiscard]] Account demoAccount(AuthProvider provider);

} // namespace pingwell
