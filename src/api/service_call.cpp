#include "api/service_call.h"

namespace pingwell {

QCoro::Task<> requestNothing(APIClientPtr client, ServiceCall call)
{
    const QueryItems noItems;
    co_await send(client, call.method, call.path, noItems, call.body);
}

QCoro::Task<std::optional<QString>> requestMessage(APIClientPtr client, ServiceCall call)
{
    return sendForMessage(std::move(client), call.method, call.path, call.body);
}

} // namespace pingwell
