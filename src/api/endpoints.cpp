#include "api/endpoints.h"

#include "api/dashboard_bounds.h"
#include "api/dashboard_dto.h"
#include "api/invitation_dto.h"
#include "api/service_call.h"

using namespace Qt::StringLiterals;

namespace pingwell::endpoints {

namespace {

/// Encodes one segment of a path: every character is percent-encoded except those RFC 3986, section 3.3, allows
/// (pchar).
QString segment(const QString &identifier)
{
    return u'/' + QString::fromLatin1(QUrl::toPercentEncoding(identifier, "!$&'()*+,;=:@"));
}

QString workspacePath(const QString &workspaceId)
{
    return u"/workspaces" + segment(workspaceId);
}

QString alertPath(const QString &workspaceId, const QString &alertId)
{
    return workspacePath(workspaceId) + u"/alerts" + segment(alertId);
}

QString memberPath(const QString &workspaceId, const QString &memberId)
{
    return workspacePath(workspaceId) + u"/members" + segment(memberId);
}

QString topicPath(const QString &workspaceId, const QString &topicId)
{
    return workspacePath(workspaceId) + u"/topics" + segment(topicId);
}

QString invitationPath(const QString &token)
{
    return u"/invites" + segment(token);
}

QString devicePath(const QString &deviceId)
{
    return u"/devices" + segment(deviceId);
}

} // namespace

QCoro::Task<Outcome<QList<AuthProvider>>> listProviders(APIClientPtr client)
{
    return request(std::move(client), {"GET", u"/auth/providers"_s}, readData<ProvidersDTO>);
}

QCoro::Task<Outcome<Session>> exchangeCode(APIClientPtr client, QString code, QString codeVerifier)
{
    // The code is exchanged before this session exists, so the request must not carry the token of another session.
    auto signedOut = std::make_shared<const APIClient>(client->baseURL(), std::nullopt, client->transport());
    const JSONObject body{{u"code"_s, code}, {u"code_verifier"_s, codeVerifier}};
    return request(std::move(signedOut), {"POST", u"/auth/native/token"_s, body}, readBare<SessionDTO>);
}

QCoro::Task<Outcome<Session>> fetchUserData(APIClientPtr client)
{
    return request(std::move(client), {"GET", u"/auth/user-data"_s}, readBare<SessionDTO>);
}

QCoro::Task<Outcome<NotificationSettings>> saveSettings(APIClientPtr client, JSONObject changes)
{
    return request(std::move(client), {"PUT", u"/auth/settings"_s, changes}, readData<SettingsDTO>);
}

QCoro::Task<Outcome<std::optional<QString>>> deleteAccount(APIClientPtr client)
{
    return requestMessage(std::move(client), {"DELETE", u"/auth/account"_s});
}

QCoro::Task<Outcome<FetchedDashboard>> fetchDashboard(APIClientPtr client, QByteArray known)
{
    const ServiceCall call{"GET", u"/dashboard"_s};
    const Outcome<HTTPResponse> answer = co_await responseTo(client, call);
    if (answer.error())
        co_return *answer.error();
    const HTTPResponse &response = *answer.value();
    FetchedDashboard fetched;
    fetched.body = response.body;
    fetched.date = response.date;
    const bool isKnown = isSuccess(response.status) && !known.isEmpty() && response.body == known;
    if (isKnown)
        co_return fetched;
    Outcome<Dashboard> dashboard = co_await decodedInBackground(response, readData<DashboardDTO>);
    if (dashboard.error())
        co_return *dashboard.error();
    fetched.dashboard = std::move(dashboard).value();
    co_return fetched;
}

QCoro::Task<Outcome<Alert>> answerAlert(APIClientPtr client, QString workspaceId, QString alertId, QString answer)
{
    const JSONObject body{{u"answer"_s, answer}};
    return request(std::move(client), {"POST", alertPath(workspaceId, alertId) + u"/answer", body}, readData<AlertDTO>);
}

QCoro::Task<Outcome<Done>> markAlertRead(APIClientPtr client, QString workspaceId, QString alertId)
{
    return requestNothing(std::move(client), {"POST", alertPath(workspaceId, alertId) + u"/read"});
}

QCoro::Task<Outcome<Done>> markAllAlertsRead(APIClientPtr client, QString workspaceId)
{
    return requestNothing(std::move(client), {"POST", workspacePath(workspaceId) + u"/alerts/read-all"});
}

QCoro::Task<Outcome<Done>> deleteAlert(APIClientPtr client, QString workspaceId, QString alertId)
{
    return requestNothing(std::move(client), {"DELETE", alertPath(workspaceId, alertId)});
}

QCoro::Task<Outcome<Alert>> sendTestAlert(APIClientPtr client, QString workspaceId, JSONObject alert)
{
    return request(std::move(client), {"POST", workspacePath(workspaceId) + u"/alerts/test", alert},
                   readData<AlertDTO>);
}

QCoro::Task<Outcome<Workspace>> changeWorkspace(APIClientPtr client, QString workspaceId, JSONObject change)
{
    return request(std::move(client), {"PATCH", workspacePath(workspaceId), change}, readData<WorkspaceDTO>);
}

QCoro::Task<Outcome<CreatedWorkspace>> createWorkspace(APIClientPtr client, QString name)
{
    const JSONObject body{{u"name"_s, name}};
    return request(std::move(client), {"POST", u"/workspaces"_s, body}, readData<CreatedWorkspaceDTO>);
}

QCoro::Task<Outcome<Done>> leaveWorkspace(APIClientPtr client, QString workspaceId)
{
    return requestNothing(std::move(client), {"POST", workspacePath(workspaceId) + u"/leave"});
}

QCoro::Task<Outcome<WithMessage<Member>>> inviteMember(APIClientPtr client, QString workspaceId, QString email,
                                                       WorkspaceRole role)
{
    const JSONObject body{{u"email"_s, email}, {u"role"_s, QString(rawValue(role))}};
    return request(std::move(client), {"POST", workspacePath(workspaceId) + u"/members", body},
                   readMessageData<MemberDTO>);
}

QCoro::Task<Outcome<WithMessage<Member>>> resendInvitation(APIClientPtr client, QString workspaceId, QString memberId)
{
    return request(std::move(client), {"POST", memberPath(workspaceId, memberId) + u"/resend"},
                   readMessageData<MemberDTO>);
}

QCoro::Task<Outcome<WithMessage<Member>>> changeMemberRole(APIClientPtr client, QString workspaceId, QString memberId,
                                                           WorkspaceRole role)
{
    const JSONObject body{{u"role"_s, QString(rawValue(role))}};
    return request(std::move(client), {"PATCH", memberPath(workspaceId, memberId), body}, readMessageData<MemberDTO>);
}

QCoro::Task<Outcome<std::optional<QString>>> removeMember(APIClientPtr client, QString workspaceId, QString memberId)
{
    return requestMessage(std::move(client), {"DELETE", memberPath(workspaceId, memberId)});
}

QCoro::Task<Outcome<Topic>> createTopic(APIClientPtr client, QString workspaceId, QString name)
{
    const JSONObject body{{u"name"_s, name}};
    return request(std::move(client), {"POST", workspacePath(workspaceId) + u"/topics", body}, readData<TopicDTO>);
}

QCoro::Task<Outcome<Topic>> changeTopic(APIClientPtr client, QString workspaceId, QString topicId, JSONObject change)
{
    return request(std::move(client), {"PATCH", topicPath(workspaceId, topicId), change}, readData<TopicDTO>);
}

QCoro::Task<Outcome<Done>> deleteTopic(APIClientPtr client, QString workspaceId, QString topicId)
{
    return requestNothing(std::move(client), {"DELETE", topicPath(workspaceId, topicId)});
}

QCoro::Task<Outcome<QList<Invitation>>> listInvitations(APIClientPtr client)
{
    return request(std::move(client), {"GET", u"/invites"_s}, readDataList<InvitationDTO, maximumInvitations>);
}

QCoro::Task<Outcome<std::optional<QString>>> acceptInvitation(APIClientPtr client, QString token)
{
    return requestMessage(std::move(client), {"POST", invitationPath(token) + u"/accept"});
}

QCoro::Task<Outcome<std::optional<QString>>> declineInvitation(APIClientPtr client, QString token)
{
    return requestMessage(std::move(client), {"POST", invitationPath(token) + u"/reject"});
}

QCoro::Task<Outcome<Device>> registerDevice(APIClientPtr client, QString name, QString version)
{
    // The service has no kind for a Linux desktop, so this client registers with the kind it replaces.
    const JSONObject body{{u"name"_s, name}, {u"version"_s, version}, {u"platform"_s, u"macos"}};
    return request(std::move(client), {"POST", u"/devices"_s, body}, readData<DeviceDTO>);
}

QCoro::Task<Outcome<Device>> sendHeartbeat(APIClientPtr client, QString deviceId, QString version)
{
    const JSONObject body{{u"version"_s, version}};
    return request(std::move(client), {"POST", devicePath(deviceId) + u"/heartbeat", body}, readData<DeviceDTO>);
}

QCoro::Task<Outcome<std::optional<QString>>> unregisterDevice(APIClientPtr client, QString deviceId)
{
    return requestMessage(std::move(client), {"DELETE", devicePath(deviceId)});
}

} // namespace pingwell::endpoints
