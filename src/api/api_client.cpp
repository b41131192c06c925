#include "api/api_client.h"

#include "model/check.h"

#include <algorithm>

namespace pingwell {

namespace {

bool isWebAddress(const QUrl &url)
{
    // QUrl lower-cases the scheme. An address with a user name or password is rejected: the address is stored in the
    // preferences unencrypted.
    const bool isWeb = url.scheme() == QLatin1StringView("http") || url.scheme() == QLatin1StringView("https");
    return url.isValid() && isWeb && !url.host().isEmpty() && url.userInfo().isEmpty() && !url.hasQuery() &&
           !url.hasFragment();
}

/// Whether the path still addresses the same resource when it reaches the service. Servers and proxies resolve "." and
/// ".." and drop empty segments, even percent-encoded ones.
bool arrivesAsItIs(const QString &path)
{
    const QStringList pieces = path.sliced(1).split(u'/');
    return std::none_of(pieces.begin(), pieces.end(),
                        [](const QString &piece) { return piece.isEmpty() || piece == u"." || piece == u".."; });
}

QString encodedQuery(const QueryItems &items)
{
    QStringList pairs;
    for (const auto &[name, value] : items)
        pairs.append(QString::fromLatin1(QUrl::toPercentEncoding(name) + '=' + QUrl::toPercentEncoding(value)));
    return pairs.join(u'&');
}

} // namespace

APIClient::APIClient(QUrl baseURL, std::optional<QString> token, std::shared_ptr<HTTPTransport> transport)
    : m_baseURL(std::move(baseURL))
    , m_token(std::move(token))
    , m_transport(std::move(transport))
{
}

QUrl APIClient::defaultBaseURL()
{
    const std::optional<QUrl> url = normalizedBaseURL(QString::fromUtf8(PINGWELL_CLOUD_URL));
    check(url.has_value(), "the cloud service's built-in address is not an address");
    return *url;
}

std::optional<QUrl> APIClient::normalizedBaseURL(const QString &text)
{
    QString address = text.trimmed();
    if (address.isEmpty())
        return std::nullopt;
    if (!address.contains(QLatin1StringView("://")))
        address.prepend(QLatin1StringView("https://"));
    while (address.endsWith(u'/'))
        address.chop(1);
    const QUrl url(address, QUrl::StrictMode);
    if (!isWebAddress(url))
        return std::nullopt;
    return url;
}

QUrl APIClient::makeURL(const QString &path, const QueryItems &queryItems) const
{
    QString basePath = m_baseURL.path(QUrl::FullyEncoded);
    if (basePath.endsWith(u'/'))
        basePath.chop(1);
    QUrl url = m_baseURL;
    // StrictMode keeps existing escapes: it reads "%25" as an encoded "%", not as three characters.
    url.setPath(basePath + path, QUrl::StrictMode);
    if (!queryItems.isEmpty())
        url.setQuery(encodedQuery(queryItems), QUrl::StrictMode);
    return url;
}

Outcome<HTTPRequest> APIClient::makeRequest(const QByteArray &method, const QString &path,
                                            const std::optional<JSONObject> &body) const
{
    if (!arrivesAsItIs(path))
        return APIError::badResponse();
    HTTPRequest request;
    request.method = method;
    request.url = makeURL(path);
    request.headers.emplaceBack("Accept", "application/json");
    if (m_token)
        request.headers.emplaceBack("Authorization", "Bearer " + m_token->toUtf8());
    if (body) {
        request.headers.emplaceBack("Content-Type", "application/json");
        request.body = encoded(*body);
    }
    return request;
}

} // namespace pingwell
