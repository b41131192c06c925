#pragma once

#include "api/api_client.h"
#include "api/dashboard.h"
#include "model/invitation.h"

namespace pingwell {

/// Every operation of the service. Each throws `APIError`, and only that; bodies are decoded and mapped off the calling
/// thread, results arrive on it. Identifiers are put into paths percent-encoded.
namespace endpoints {

QCoro::Task<QList<AuthProvider>> listProviders(APIClientPtr client);
QCoro::Task<Session> exchangeCode(APIClientPtr client, QString code, QString codeVerifier);
QCoro::Task<Session> fetchUserData(APIClientPtr client);
/// `changes` holds only the keys that changed.
QCoro::Task<NotificationSettings> saveSettings(APIClientPtr client, JSONObject changes);
QCoro::Task<std::optional<QString>> deleteAccount(APIClientPtr client);

/// `known` is the body of the last dashboard applied; the same bytes again are not decoded.
QCoro::Task<FetchedDashboard> fetchDashboard(APIClientPtr client, QByteArray known);

QCoro::Task<Alert> answerAlert(APIClientPtr client, QString workspaceId, QString alertId, QString answer);
QCoro::Task<> markAlertRead(APIClientPtr client, QString workspaceId, QString alertId);
QCoro::Task<> markAllAlertsRead(APIClientPtr client, QString workspaceId);
QCoro::Task<> deleteAlert(APIClientPtr client, QString workspaceId, QString alertId);
QCoro::Task<Alert> sendTestAlert(APIClientPtr client, QString workspaceId, JSONObject alert);

/// `change` holds the one changed field, "responseTimeoutMinutes", "timeoutAction" or "name".
QCoro::Task<Workspace> changeWorkspace(APIClientPtr client, QString workspaceId, JSONObject change);
QCoro::Task<CreatedWorkspace> createWorkspace(APIClientPtr client, QString name);
QCoro::Task<> leaveWorkspace(APIClientPtr client, QString workspaceId);

QCoro::Task<WithMessage<Member>> inviteMember(APIClientPtr client, QString workspaceId, QString email,
                                              WorkspaceRole role);
QCoro::Task<WithMessage<Member>> resendInvitation(APIClientPtr client, QString workspaceId, QString memberId);
QCoro::Task<WithMessage<Member>> changeMemberRole(APIClientPtr client, QString workspaceId, QString memberId,
                                                  WorkspaceRole role);
QCoro::Task<std::optional<QString>> removeMember(APIClientPtr client, QString workspaceId, QString memberId);

QCoro::Task<Topic> createTopic(APIClientPtr client, QString workspaceId, QString name);
/// `change` holds the one changed field, "muted", "minPriority" or "quietHours".
QCoro::Task<Topic> changeTopic(APIClientPtr client, QString workspaceId, QString topicId, JSONObject change);
QCoro::Task<> deleteTopic(APIClientPtr client, QString workspaceId, QString topicId);

QCoro::Task<QList<Invitation>> listInvitations(APIClientPtr client);
QCoro::Task<std::optional<QString>> acceptInvitation(APIClientPtr client, QString token);
QCoro::Task<std::optional<QString>> declineInvitation(APIClientPtr client, QString token);

QCoro::Task<Device> registerDevice(APIClientPtr client, QString name, QString version);
QCoro::Task<Device> sendHeartbeat(APIClientPtr client, QString deviceId, QString version);
QCoro::Task<std::optional<QString>> unregisterDevice(APIClientPtr client, QString deviceId);

} // namespace endpoints

} // namespace pingwell
