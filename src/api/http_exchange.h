#pragma once

#include "api/pending_response.h"
#include "api/url_session_transport.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace pingwell {

/// One request on its way over the network, through its redirects, to its answer. Deletes itself once it has ended;
/// when it is deleted before, no answer arrived.
class HTTPExchange final : public QObject
{
public:
    HTTPExchange(QNetworkAccessManager &manager, HTTPRequest request, TransportLimits limits, QObject *parent);
    ~HTTPExchange() override;

    [[nodiscard]] PendingResponse response() const { return m_response; }
    void start();

private:
    void sendTo(const QUrl &url);
    void checkLength();
    void takeBytes();
    void conclude();
    [[nodiscard]] int status() const;
    [[nodiscard]] bool hasArrived() const;
    [[nodiscard]] std::optional<QUrl> redirection() const;
    void end(std::optional<HTTPResponse> response);
    void dropReply();

    QNetworkAccessManager &m_manager;
    HTTPRequest m_request;
    TransportLimits m_limits;
    PendingResponse m_response;
    QTimer m_deadline;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_body;
    int m_redirectsLeft = 3;
};

} // namespace pingwell
