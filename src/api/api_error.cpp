#include "api/api_error.h"

namespace pingwell {

APIError::APIError(int status, std::optional<QString> code, QString message)
    : m_status(status)
    , m_code(std::move(code))
    , m_message(std::move(message))
{
}

APIError APIError::offline()
{
    return APIError(0, QStringLiteral("offline"), unreachableMessage());
}

APIError APIError::badResponse()
{
    return APIError(
        500, QStringLiteral("bad_response"),
        QStringLiteral("The server sent something this app doesn't understand. Update the app and try again."));
}

APIError APIError::tooLarge()
{
    return APIError(500, QStringLiteral("too_large"),
                    QStringLiteral("The server sent more than this app can take in. Try again later."));
}

QString unreachableMessage()
{
    return QStringLiteral("Can't reach the Pingwell server. Check your connection.");
}

} // namespace pingwell
