#include "api/url_session_transport.h"

#include "api/http_exchange.h"
#include "api/unpacked_response.h"
#include "async/background.h"

namespace pingwell {

namespace {

/// Waits for the response and unpacks its body in the thread pool.
QCoro::Task<Outcome<HTTPResponse>> unpackedResponseOf(PendingResponse pending, qint64 limit)
{
    Outcome<HTTPResponse> response = co_await responseOf(pending);
    if (response.error() || response.value()->contentEncoding.isEmpty())
        co_return response;
    auto unpack = [packed = *std::move(response).value(), limit] { return unpacked(packed, limit); };
    Outcome<HTTPResponse> result = co_await inBackground(std::move(unpack));
    co_return result;
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

QCoro::Task<Outcome<HTTPResponse>> URLSessionTransport::perform(HTTPRequest request)
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
