#include "api/service_call.h"

namespace pingwell {

QCoro::Task<HTTPResponse> responseTo(APIClientPtr client, HTTPRequest request)
{
    const std::shared_ptr<HTTPTransport> transport = client->transport();
    std::optional<HTTPResponse> response;
    try {
        response = co_await transport->perform(request);
    } catch (const APIError &) {
        throw;
    } catch (...) {
        throw APIError::offline();
    }
    if (response->status == 0)
        throw APIError::offline();
    co_return std::move(*response);
}

QCoro::Task<std::optional<QString>> requestMessage(APIClientPtr client, ServiceCall call)
{
    const HTTPRequest prepared = client->makeRequest(call.method, call.path, call.body);
    const HTTPResponse response = co_await responseTo(client, prepared);
    auto examine = [response] { return messageOrFailureOf(response); };
    Outcome<std::optional<QString>> outcome = co_await inBackground(std::move(examine));
    co_return valueOf(std::move(outcome));
}

QCoro::Task<> requestNothing(APIClientPtr client, ServiceCall call)
{
    co_await requestMessage(client, call);
}

} // namespace pingwell
