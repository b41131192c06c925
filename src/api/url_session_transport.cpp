#include "api/url_session_transport.h"

#include "api/api_error.h"
#include "api/http_exchange.h"

namespace pingwell {

URLSessionTransport::URLSessionTransport(TransportLimits limits)
    : m_limits(limits)
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
    auto *exchange = new HTTPExchange(m_manager, std::move(request), m_limits, &m_exchanges);
    const PendingResponse pending = exchange->response();
    exchange->start();
    return responseOf(pending);
}

} // namespace pingwell
