#include "auth/callback_result.h"

#include <QUrlQuery>

#include <optional>

namespace pingwell {

namespace {

/// The value of the first item with that name; a null text for an item without a value.
std::optional<QString> firstItem(const QUrl &url, const QString &name)
{
    const QUrlQuery query(url);
    if (!query.hasQueryItem(name))
        return std::nullopt;
    return query.queryItemValue(name, QUrl::FullyDecoded);
}

} // namespace

CallbackResult parseCallback(const QUrl &url)
{
    const QString failed = QStringLiteral("oauth_failed");
    const auto code = firstItem(url, QStringLiteral("code"));
    if (code && !code->isEmpty())
        return CallbackResult::code(*code);
    const auto error = firstItem(url, QStringLiteral("error"));
    return CallbackResult::error(error && !error->isEmpty() ? *error : failed);
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
