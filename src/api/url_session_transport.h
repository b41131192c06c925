#pragma once

#include "api/http_transport.h"

#include <QNetworkAccessManager>
#include <QObject>

#include <chrono>
#include <memory>

namespace pingwell {

/// How much memory and time one request may use.
struct TransportLimits
{
    /// The largest unpacked body, in bytes.
    qint64 bodyBytes = 64 * 1024 * 1024;
    /// From sending the request to the last byte of the response, redirects included.
    std::chrono::milliseconds deadline{60'000};
};

/// HTTP/1.1 over the network. Keeps nothing between requests except connections: no cookies, cache or credentials. Only
/// a GET follows redirects, three at most, and only within the origin of the request (RFC 6454), so that none of its
/// headers reaches another server. Every other redirect is returned as the response. Certificates are always checked.
/// Destroying a transport ends its requests with `APIError::offline()`; destroy it while the application object and its
/// event loop still exist. When a server was silent for too long, its kept connections are dropped. Packed bodies are
/// unpacked in the thread pool.
class URLSessionTransport final : public HTTPTransport
{
public:
    explicit URLSessionTransport(TransportLimits limits = TransportLimits());
    ~URLSessionTransport() override;

    /// The transport that this process shares, created on first use. Its users own it, and the last of them destroys
    /// it, which has to happen before the application object is destroyed.
    static std::shared_ptr<URLSessionTransport> shared();

    QCoro::Task<Outcome<HTTPResponse>> perform(HTTPRequest request) override;
    void dropConnections() override;

private:
    /// Used by later requests. Requests under way keep the connections they began with.
    void takeNewConnections();

    TransportLimits m_limits;
    std::shared_ptr<QNetworkAccessManager> m_connections;
    /// Parent of the exchanges under way.
    QObject m_exchanges;
};

} // namespace pingwell
