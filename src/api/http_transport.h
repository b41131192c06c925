#pragma once

#include "api/outcome.h"
#include "model/instant.h"

#include <QByteArray>
#include <QCoroTask>
#include <QList>
#include <QUrl>

#include <chrono>
#include <optional>
#include <utility>

namespace pingwell {

/// A complete HTTP request.
struct HTTPRequest
{
    QByteArray method;
    QUrl url;
    QList<std::pair<QByteArray, QByteArray>> headers;
    std::optional<QByteArray> body;
    /// How long the server may stay silent.
    std::chrono::milliseconds timeout{20'000};
};

/// The response: its status, which is 0 when the response was not HTTP, and its body.
struct HTTPResponse
{
    int status = 0;
    QByteArray body;
    /// When the server sent it, by its own clock and to the second (`Date`, RFC 9110, 6.6.1).
    std::optional<Instant> date = std::nullopt;
    /// The body's Content-Encoding (RFC 9110, 8.4). Empty when the body is not packed, and in every response that a
    /// transport returns.
    QByteArray contentEncoding = {};
};

/// Performs HTTP requests. Tests and the demo replace it with a service in memory. Main thread.
class HTTPTransport
{
public:
    virtual ~HTTPTransport() = default;

    /// Resumes with the response, whatever its status; with `APIError::offline()` when none arrived, and with
    /// `APIError::tooLarge()` when the response is larger than the transport accepts.
    virtual QCoro::Task<Outcome<HTTPResponse>> perform(HTTPRequest request) = 0;

    /// Called after the computer slept or changed its network: connections that were kept open may be dead without
    /// reporting an error. Later requests use new connections, and every GET under way is repeated over them. Other
    /// requests under way keep waiting, because the service may already have received them. A transport that keeps no
    /// connections does nothing.
    virtual void dropConnections() {}
};

} // namespace pingwell
