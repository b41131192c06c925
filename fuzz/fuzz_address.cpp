// The address of a server as a person types it.
#include "api/api_client.h"
#include "expect.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace pingwell;
    const QString typed = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto address = APIClient::normalizedBaseURL(typed);
    if (!address)
        return 0;
    expect(address->scheme() == QStringLiteral("https") || address->scheme() == QStringLiteral("http"));
    expect(!address->host().isEmpty() && address->userInfo().isEmpty());
    // What was accepted once is remembered as text, and must name the same place the next time.
    const auto again = APIClient::normalizedBaseURL(address->toString(QUrl::FullyEncoded));
    expect(again && again->toEncoded() == address->toEncoded());
    return 0;
}
