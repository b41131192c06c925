#include "auth/callback_result.h"

#include <QUrlQuery>

namespace pingwell {

CallbackResult parseCallback(const QUrl &url)
{
    const QUrlQuery query(url);
    const QString code = query.queryItemValue(QStringLiteral("code"), QUrl::FullyDecoded);
    if (!code.isEmpty())
        return CallbackResult::code(code);
    const QString error = query.queryItemValue(QStringLiteral("error"), QUrl::FullyDecoded);
    return CallbackResult::error(error.isEmpty() ? QStringLiteral("oauth_failed") : error);
}

QString signInErrorMessage(const QString &reason)
{
    if (reason == u"access_denied")
        return QStringLiteral("Sign-in was cancelled.");
    if (reason == u"provider_unavailable")
        return QStringLiteral("That sign-in option isn't available on this server.");
    return QStringLiteral("Sign-in didn't finish. Try again.");
}

} // namespace pingwell
