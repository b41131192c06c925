#pragma once

#include "service_state.h"

#include <QJsonArray>
#include <QJsonObject>

namespace pingwell::devserver {

// The records as they travel. Instants are milliseconds since 1970; what is not known is left out.

QJsonObject toJson(const ServedAlert &served);
QJsonObject toJson(const Workspace &workspace);
QJsonObject toJson(const Topic &topic);
QJsonObject toJson(const Member &member, const QString &workspaceId);
QJsonObject toJson(const Device &device);
QJsonObject toJson(const Invitation &invitation);
QJsonObject toJson(const NotificationSettings &settings);
/// The person, with their plan.
QJsonObject sessionToJson(const Account &account);
QJsonObject dashboardToJson(const ServiceState &state);
QJsonArray membersToJson(const ServiceState &state, const QString &workspaceId);

} // namespace pingwell::devserver
