#include "auth/session_secret.h"

#include <algorithm>

namespace pingwell {

bool isToken(const QString &text)
{
    const auto isVisible = [](QChar character) { return character >= u'!' && character <= u'~'; };
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isVisible);
}

QString originOf(const QUrl &url)
{
    const bool isDefaultPort = url.port() == (url.scheme() == u"https" ? 443 : 80);
    QUrl origin;
    origin.setScheme(url.scheme());
    origin.setHost(url.host());
    origin.setPort(isDefaultPort ? -1 : url.port());
    return origin.toString(QUrl::FullyEncoded);
}

QString encodedSecret(const SessionSecret &secret)
{
    return secret.origin ? QString(secret.token + u' ' + *secret.origin) : secret.token;
}

std::optional<SessionSecret> decodedSecret(const QString &text)
{
    const qsizetype space = text.indexOf(u' ');
    SessionSecret secret{.token = space < 0 ? text : text.first(space)};
    if (!isToken(secret.token))
        return std::nullopt;
    if (space >= 0)
        secret.origin = text.sliced(space + 1);
    return secret;
}

} // namespace pingwell
