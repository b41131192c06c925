#include "one_body.h"

#include "async/system_clock.h"

namespace pingwell {

QCoro::Task<Outcome<HTTPResponse>> OneBody::perform(HTTPRequest)
{
    started.start();
    co_return HTTPResponse{.status = 200, .body = body};
}

std::unique_ptr<AppStore> storeFedBy(std::shared_ptr<OneBody> transport)
{
    auto backend = std::make_shared<Backend>();
    backend->transport = std::move(transport);
    backend->tokenStore = std::make_shared<MemoryTokenStore>(QStringLiteral("token"));
    backend->baseURLOverride = QUrl(QStringLiteral("https://pingwell.test"));
    const auto clock = std::make_shared<SystemClock>();
    return std::make_unique<AppStore>(SeedData(), false, nullptr, clock->now(), std::move(backend), clock);
}

} // namespace pingwell
