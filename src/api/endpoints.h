#pragma once

#include "api/api_client.h"
#include "api/dashboard.h"
#include "model/invitation.h"

namespace pingwell {

/// Every operation of the service. Bodies are decoded and mapped in the thread pool, and the outcome arrives on the
/// calling thread. Identifiers are percent-encoded in paths.
namespace endpoints {

QCoro::Task<Outcome<QList<AuthProvider>>> listProviders(APIClientPtr client);
QCoro::Task<Outcome<Session>> exchangeCode(APIClientPtr client, QString code, QString codeVerifier);
QCoro::Task<Outcome<Session>> fetchUserData(APIClientPtr client);
/// `changes` holds only the keys that changed.
QCoro::Task<Outcome<NotificationSettings>> saveSettings(APIClientPtr client, JSONObject changes);
QCoro::Task<Outcome<std::optional<QString>>> deleteAccount(APIClientPtr client);

/// `known` is the body of the last dashboard that was merged; an equal body is not decoded again.
QCoro::Task<Outcome<FetchedDashboard>> fetchDashboard(APIClientPtr client, QByteArray known);

QCoro::Task<Outcome<Alert>> answerAlert(APIClientPtr client, QString workspaceId, QString alertId, QString answer);
QCoro::Task<Outcome<Done>> markAlertRead(APIClientPtr client, QString workspaceId, QString alertId);
QCoro::Task<Outcome<Done>> markAllAlertsRead(APIClientPtr client, QString workspaceId);
QCoro::Task<Outcome<Done>> deleteAlert(APIClientPtr client, QString workspaceId, QString alertId);
QCoro::Task<Outcome<Alert>> sendTestAlert(APIClientPtr client, QString workspaceId, JSONObject alert);

/// `change` holds the one changed field, "responseTimeoutMinutes", "timeoutAction" or "name".
QCoro::Task<Outcome<Workspace>> changeWorkspace(APIClientPtr client, QString workspaceId, JSONObject change);
QCoro::Task<Outcome<CreatedWorkspace>> createWorkspace(APIClientPtr client, QString name);
QCoro::Task<Outcome<Done>> leaveWorkspace(APIClientPtr client, QString workspaceId);

QCoro::Task<Outcome<WithMessage<Member>>> inviteMember(APIClientPtr client, QString workspaceId, QString email,
                                                       WorkspaceRole role);
QCoro::Task<Outcome<WithMessage<Member>>> resendInvitation(APIClientPtr client, QString workspaceId, QString memberId);
QCoro::Task<Outcome<WithMessage<Member>>> changeMemberRole(APIClientPtr client, QString workspaceId, QString memberId,
                                                           WorkspaceRole role);
QCoro::Task<Outcome<std::optional<QString>>> removeMember(APIClientPtr client, QString workspaceId, QString memberId);

QCoro::Task<Outcome<Topic>> createTopic(APIClientPtr client, QString workspaceId, QString name);
/// `change` holds the one changed field, "muted", "minPriority" or "quietHours".
QCoro::Task<Outcome<Topic>> changeTopic(APIClientPtr client, QString workspaceId, QString topicId, JSONObject change);
QCoro::Task<Outcome<Done>> deleteTopic(APIClientPtr client, QString workspaceId, QString topicId);

QCoro::Task<Outcome<QList<Invitation>>> listInvitations(APIClientPtr client);
QCoro::Task<Outcome<std::optional<QString>>> acceptInvitation(APIClientPtr client, QString token);
QCoro::Task<Outcome<std::optional<QString>>> declineInvitation(APIClientPtr client, QString token);

QCoro::Task<Outcome<Device>> registerDevice(APIClientPtr client, QString name, QString version);
QCoro::Task<Outcome<Device>> sendHeartbeat(APIClientPtr client, QString deviceId, QString version);
QCoro::Task<Outcome<std::optional<QString>>> unregisterDevice(APIClientPtr client, QString deviceId);

} // namespace endpoints

} // namespace pingwell
