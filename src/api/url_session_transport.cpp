#include "api/url_session_transport.h"

#include "api/api_error.h"
#include "api/http_exchange.h"
#include "api/unpacked_response.h"
#include "async/background.h"

namespace pingwell {

namespace {

/// Waits for the response and has its body unpacked.
QCoro::Task<HTTPResponse> unpackedResponseOf(PendingResponse pending, qint64 limit)
{
    HTTPResponse response = co_await responseOf(pending);
    if (response.contentEncoding.isEmpty())
        co_return response;
    auto unpack = [response = std::move(response), limit] { return unpacked(response, limit); };
    std::variant<HTTPResponse, APIError> result = co_await inBackground(std::move(unpack));
    if (const APIError *error = std::get_if<APIError>(&result))
        throw *error;
    co_return std::get<HTTPResponse>(std::move(result));
}

} // namespace

URLSessionTransport::URLSessionTransport(TransportLimits limits)
    : m_limits(limits)
    , m_connections(std::make_shared<QNetworkAccessManager>())
{
}

URLSessionTransport::~URLSessionTransport() = default;

std::shared_ptr<URLSessionTransport> URLSessionTransport::shared()
{
    static std::weak_ptr<URLSessionTransport> theOne;
    std::shared_ptr<URLSessionTransport> transport = theOne.lock();
    if (!transport) {
        transport = std::make_shared<URLSessionTransport>();
        theOne = transport;
    }
    return transport;
}

QCoro::Task<HTTPResponse> URLSessionTransport::perform(HTTPRequest request)
{
    auto *exchange = new HTTPExchange(m_connections, std::move(request), m_limits, &m_exchanges);
    QObject::connect(exchange, &HTTPExchange::timedOut, &m_exchanges, [this] { takeNewConnections(); });
    const PendingResponse pending = exchange->response();
    exchange->start();
    return unpackedResponseOf(pending, m_limits.bodyBytes);
}

void URLSessionTransport::dropConnections()
{
    takeNewConnections();
    for (HTTPExchange *const exchange : m_exchanges.findChildren<HTTPExchange *>(Qt::FindDirectChildrenOnly))
        exchange->moveTo(m_connections);
}

void URLSessionTransport::takeNewConnections()
{
    m_connections = std::make_shared<QNetworkAccessManager>();
}

} // namespace pingwell
