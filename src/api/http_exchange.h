#pragma once

#include "api/pending_response.h"
#include "api/url_session_transport.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace pingwell {

/// One request on its way over the network, through its redirects, to its answer. Deletes itself once it has ended;
/// when it is deleted before, no answer arrived.
class HTTPExchange final : public QObject
{
    Q_OBJECT

public:
    /// The connections live as long as an exchange uses them.
    using Connections = std::shared_ptr<QNetworkAccessManager>;

    HTTPExchange(Connections connections, HTTPRequest request, TransportLimits limits, QObject *parent);
    ~HTTPExchange() override;

    [[nodiscard]] PendingResponse response() const { return m_response; }
    void start();
    /// Sends a GET anew over those connections; any other request stays where it is. The deadline stands.
    void moveTo(const Connections &connections);

signals:
    /// The server said nothing for too long.
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
