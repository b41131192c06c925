#include "dev_server.h"

#include "fields.h"
#include "routes.h"

#include <QHostAddress>
#include <QHttpServerRequest>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QMetaEnum>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

Instant now()
{
    return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now());
}

QString bearerOf(const QHttpServerRequest &request)
{
    const QString header = QString::fromUtf8(request.value("Authorization"));
    const QString scheme = u"Bearer "_s;
    return header.startsWith(scheme, Qt::CaseInsensitive) ? header.mid(scheme.size()).trimmed() : QString();
}

Call callFrom(const QHttpServerRequest &request)
{
    Call call;
    call.method = QString::fromLatin1(
                      QMetaEnum::fromType<QHttpServerRequest::Method>().valueToKey(static_cast<int>(request.method())))
                      .toUpper();
    call.path = request.url().path(QUrl::FullyEncoded);
    call.query = request.query();
    call.bearer = bearerOf(request);
    call.rawBody = request.body();
    call.now = now();
    return call;
}

QJsonObject readBody(const QByteArray &bytes)
{
    if (bytes.trimmed().isEmpty())
        return {};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        throw badRequest(u"The body isn't JSON: %1 at byte %2."_s.arg(error.errorString()).arg(error.offset));
    if (!document.isObject())
        throw badRequest(u"The body must be a JSON object."_s);
    return document.object();
}

Respond writingTo(QTcpSocket *socket)
{
    return [socket = QPointer(socket)](const Reply &reply) {
        if (socket)
            write(socket, reply);
    };
}

} // namespace

DevServer::DevServer(ServiceState state)
    : m_state(std::move(state))
{
    addAuthRoutes(m_router, m_state);
    addAlertRoutes(m_router, m_state);
    addWorkspaceRoutes(m_router, m_state);
    addMemberRoutes(m_router, m_state);
    addTopicRoutes(m_router, m_state);
    addInvitationRoutes(m_router, m_state);
    addDeviceRoutes(m_router, m_state);
    addAgentRoutes(m_router, m_state, m_waiting);
    addTestRoutes(m_router, m_state, m_faults, m_requests);
    addOutageRoute();
    m_nextDeadline.setSingleShot(true);
    connect(&m_nextDeadline, &QTimer::timeout, this, &DevServer::settleDeadlines);
    settleDeadlines();
}

void DevServer::goAway(Seconds duration)
{
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(duration);
    for (QTcpServer *server : servers()) {
        const quint16 port = server->serverPort();
        server->close();
        for (QTcpSocket *socket : server->findChildren<QTcpSocket *>())
            socket->abort();
        QTimer::singleShot(milliseconds, server, [server, port] { server->listen(QHostAddress::LocalHost, port); });
    }
}

void DevServer::addOutageRoute()
{
    m_router.add(u"POST"_s, u"/test/outage"_s, Access::open, [this](const Call &call) {
        const Seconds duration(numberField(call.body, u"seconds"_s, 0, 3600).value_or(1));
        // This request's own answer leaves before everything is cut.
        QTimer::singleShot(std::chrono::milliseconds(50), this, [this, duration] { goAway(duration); });
        return done();
    });
}

quint16 DevServer::listenOnLoopback(quint16 port)
{
    return listen(QHostAddress::LocalHost, port);
}

bool DevServer::handleRequest(const QHttpServerRequest &request, QTcpSocket *socket)
{
    serve(callFrom(request), socket);
    return true;
}

void DevServer::missingHandler(const QHttpServerRequest &, QTcpSocket *) {}

void DevServer::serve(const Call &call, QTcpSocket *socket)
{
    if (call.path.startsWith(u"/test/"))
        return carryOut(call, writingTo(socket));
    m_requests.add(call);
    const std::optional<Fault> fault = m_faults.take(call.route());
    if (!fault)
        return carryOut(call, writingTo(socket));
    if (fault->cuts())
        m_requests.addCut(call);
    const Respond respond = [socket = QPointer(socket), fault = *fault](const Reply &reply) {
        if (socket)
            answerWithFault(socket, fault, reply);
    };
    QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(fault->lateness()), this,
                       [this, call, respond, carriesOut = fault->carriesOut()] {
                           if (carriesOut)
                               carryOut(call, respond);
                           else
                               respond(Reply{});
                       });
}

void DevServer::carryOut(Call call, const Respond &respond)
{
    call.now = now();
    m_state.settleDeadlines(call.now);
    try {
        const Route &route = m_router.find(call);
        if (route.access == Access::session && !m_state.sessions.isGood(call.bearer))
            throw Refusal{401, u"unauthorized"_s, u"Your session has ended. Sign in again."_s};
        call.body = readBody(call.rawBody);
        route.handler(call, respond);
    } catch (const Refusal &refusal) {
        respond(refused(refusal));
    }
    settleDeadlines();
}

void DevServer::settleDeadlines()
{
    m_state.settleDeadlines(now());
    m_waiting.answerSettled();
    const std::optional<Instant> next = m_state.nextDeadline();
    if (!next)
        return m_nextDeadline.stop();
    // A timer counts at most some weeks; an hour on, it is asked again.
    const Seconds left = std::clamp(*next - now(), Seconds(0), Seconds(3600));
    m_nextDeadline.start(std::chrono::ceil<std::chrono::milliseconds>(left));
}

} // namespace pingwell::devserver
