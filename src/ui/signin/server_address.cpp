#include "ui/signin/server_address.h"

#include <QHostAddress>

namespace pingwell {

bool isOpenToListeners(const QUrl &baseURL)
{
    if (baseURL.scheme() != QStringLiteral("http"))
        return false;
    const QString host = baseURL.host();
    return host != QStringLiteral("localhost") && !QHostAddress(host).isLoopback();
}

bool ServerAddress::isOpen(const QString &text) const
{
    const auto baseURL = APIClient::normalizedBaseURL(text);
    return baseURL && isOpenToListeners(*baseURL);
}

} // namespace pingwell
