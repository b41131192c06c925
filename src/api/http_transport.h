#pragma once

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
};

/// Performs requests; the seam behind which tests and demo code put an in-memory service. Main thread.
class HTTPTransport
{
public:
    virtual ~HTTPTransport() = default;

    /// The answer, whatever its status. Throws `APIError::offline()` when none arrived.
    virtual QCoro::Task<HTTPResponse> perform(HTTPRequest request) = 0;
};

} // namespace pingwell
