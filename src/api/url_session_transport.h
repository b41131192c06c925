#pragma once

#include "api/http_transport.h"

#include <QNetworkAccessManager>
#include <QObject>

#include <chrono>
#include <memory>

namespace pingwell {

/// What a server may take of this program.
struct TransportLimits
{
    /// The largest body, unpacked.
    qint64 bodyBytes = 64 * 1024 * 1024;
    /// From the request to the last byte, redirects included.
    std::chrono::milliseconds deadline{60'000};
};

/// HTTP/1.1 over the network. Keeps nothing between requests but connections: no cookies, cache or credentials. Only a
/// GET follows redirects, three at most, and only within the origin of the request (RFC 6454), so that no header of it
/// reaches another server; every other redirect is the answer. Certificates are always checked. A transport that is
/// destroyed ends its requests as offline; destroy it while the application and its event loop still live. When a
/// server was silent for too long, its kept connections are dropped. Bodies packed with gzip are unpacked in the thread
/// pool.
class URLSessionTransport final : public HTTPTransport
{
public:
    explicit URLSessionTransport(TransportLimits limits = TransportLimits());
    ~URLSessionTransport() override;

    /// The one of this process, made on first use. Those who use it own it; the last of them takes it along, which has
    /// to happen before the application object goes.
    static std::shared_ptr<URLSessionTransport> shared();

    QCoro::Task<Outcome<HTTPResponse>> perform(HTTPRequest request) override;
    void dropConnections() override;

private:
    /// Of later requests. Those under way keep the ones that they began with.
    void takeNewConnections();

    TransportLimits m_limits;
    std::shared_ptr<QNetworkAccessManager> m_connections;
    /// Parent of the exchanges under way.
    QObject m_exchanges;
};

} // namespace pingwell
