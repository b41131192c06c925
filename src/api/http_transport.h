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

/// A finished HTTP request.
struct HTTPRequest
{
    QByteArray method;
    QUrl url;
    QList<std::pair<QByteArray, QByteArray>> headers;
    std::optional<QByteArray> body;
    /// How long the server may stay silent.
    std::chrono::milliseconds timeout{20'000};
};

/// What came back: the status, 0 when the answer was not HTTP, and the body's bytes.
struct HTTPResponse
{
    int status = 0;
    QByteArray body;
    /// When the server sent it, by its own clock and to the second (`Date`, RFC 9110, 6.6.1).
    std::optional<Instant> date = std::nullopt;
    /// How the body is packed, as RFC 9110, 8.4 has it; empty when it isn't, as every one that a transport hands out.
    QByteArray contentEncoding = {};
};

/// Performs requests; the seam behind which tests and demo code put an in-memory service. Main thread.
class HTTPTransport
{
public:
    virtual ~HTTPTransport() = default;

    /// The answer, whatever its status. `APIError::offline()` when none arrived, and `APIError::tooLarge()` when it is
    /// more than may be taken in.
    virtual QCoro::Task<Outcome<HTTPResponse>> perform(HTTPRequest request) = 0;

    /// Called after the computer slept or came to another network: connections kept from before may be dead without
    /// showing it. Later requests use new ones, and so does every GET under way, which is sent anew. Other requests
    /// under way wait on, because the service may have had them. Without kept connections there is nothing to do.
    virtual void dropConnections() {}
};

} // namespace pingwell
