#pragma once

#include "api/pending_response.h"
#include "api/url_session_transport.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace pingwell {

/// One HTTP request from the first byte sent to its response, redirects included. Deletes itself when it has ended. If
/// it is deleted earlier, the response is `APIError::offline()`.
class HTTPExchange final : public QObject
{
    Q_OBJECT

public:
    /// The network access manager, which lives as long as an exchange uses it.
    using Connections = std::shared_ptr<QNetworkAccessManager>;

    HTTPExchange(Connections connections, HTTPRequest request, TransportLimits limits, QObject *parent);
    ~HTTPExchange() override;

    [[nodiscard]] PendingResponse response() const { return m_response; }
    void start();
    /// Repeats a GET over those connections; any other request stays on its old ones. The deadline does not change.
    void moveTo(const Connections &connections);

signals:
    /// The server sent nothing for longer than the request allows.
    void timedOut();

private:
    void send();
    void checkLength();
    void takeBytes();
    void conclude();
    [[nodiscard]] int status() const;
    [[nodiscard]] bool hasArrived() const;
    [[nodiscard]] std::optional<QUrl> redirection() const;
    void giveUp();
    void fail(const APIError &error);
    void end();
    void dropReply();

    Connections m_connections;
    HTTPRequest m_request;
    TransportLimits m_limits;
    PendingResponse m_response;
    QTimer m_deadline;
    QUrl m_url;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_body;
    int m_redirectsLeft = 3;
};

} // namespace pingwell
