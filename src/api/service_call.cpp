#include "api/service_call.h"

namespace pingwell {

QCoro::Task<Outcome<HTTPResponse>> responseTo(APIClientPtr client, ServiceCall call)
{
    const Outcome<HTTPRequest> prepared = client->makeRequest(call.method, call.path, call.body);
    if (prepared.error())
        co_return *prepared.error();
    const HTTPRequest &request = *prepared.value();
    const std::shared_ptr<HTTPTransport> transport = client->transport();
    Outcome<HTTPResponse> response = co_await transport->perform(request);
    if (response.value() && response.value()->status == 0)
        co_return APIError::offline();
    co_return response;
}

QCoro::Task<Outcome<std::optional<QString>>> requestMessage(APIClientPtr client, ServiceCall call)
{
    const Outcome<HTTPResponse> response = co_await responseTo(client, call);
    if (response.error())
        co_return *response.error();
    auto examine = [answer = *response.value()] { return messageOrFailureOf(answer); };
    Outcome<std::optional<QString>> outcome = co_await inBackground(std::move(examine));
    co_return outcome;
}

QCoro::Task<Outcome<Done>> requestNothing(APIClientPtr client, ServiceCall call)
{
    const Outcome<std::optional<QString>> outcome = co_await requestMessage(client, call);
    if (outcome.error())
        co_return *outcome.error();
    co_return Done();
}

} // namespace pingwell
