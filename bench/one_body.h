#pragma once

#include "api/http_transport.h"
#include "store/app_store.h"

#include <QElapsedTimer>

#include <memory>

namespace pingwell {

/// A service in memory: answers every request with the body it was given last.
class OneBody final : public HTTPTransport
{
public:
    QCoro::Task<Outcome<HTTPResponse>> perform(HTTPRequest request) override;

    QByteArray body;
    /// Runs since the last answer.
    QElapsedTimer started;
};

/// A signed-in store that asks that service and remembers nothing.
[[nodiscard]] std::unique_ptr<AppStore> storeFedBy(std::shared_ptr<OneBody> transport);

} // namespace pingwell
