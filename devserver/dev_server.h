#pragma once

#include "faults.h"
#include "request_log.h"
#include "router.h"
#include "service_state.h"
#include "waiting_agents.h"

#include <QAbstractHttpServer>
#include <QTimer>

namespace pingwell::devserver {

/// The stand-in service on HTTP. It stands on `QAbstractHttpServer` rather than on the ready-made `QHttpServer`,
/// because it needs the socket of a request: to answer it later, to cut it, or to send half an answer.
class DevServer : public QAbstractHttpServer
{
public:
    explicit DevServer(ServiceState state);

    /// The port it now listens on, on this machine only; 0 when `port` is taken. Port 0 takes any free one.
    quint16 listenOnLoopback(quint16 port);

protected:
    bool handleRequest(const QHttpServerRequest &request, QTcpSocket *socket) override;
    void missingHandler(const QHttpServerRequest &request, QTcpSocket *socket) override;

private:
    void serve(const Call &call, QTcpSocket *socket);
    /// Carries the call out, or refuses it; `respond` is always called, now or later.
    void carryOut(Call call, const Respond &respond);
    void settleDeadlines();
    void addOutageRoute();
    /// As a restart that forgets nothing: cuts all connections, and takes none for so long.
    void goAway(Seconds duration);

    ServiceState m_state;
    FaultTable m_faults;
    RequestLog m_requests;
    WaitingAgents m_waiting{m_state};
    Router m_router;
    QTimer m_nextDeadline;
};

} // namespace pingwell::devserver
