#include "api/api_client.h"

#include "api/decoding.h"
#include "async/background.h"
#include "model/check.h"

namespace pingwell {

namespace {

bool isWebAddress(const QUrl &url)
{
    // QUrl lower-cases the scheme. A name or password in the address would be kept in the preferences in the clear.
    const bool isWeb = url.scheme() == QLatin1StringView("http") || url.scheme() == QLatin1StringView("https");
    return url.isValid() && isWeb && !url.host().isEmpty() && url.userInfo().isEmpty() && !url.hasQuery() &&
           !url.hasFragment();
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
    // What is encoded stays as it is: this mode takes "%25" for an encoded "%", not for three characters.
    url.setPath(basePath + path, QUrl::StrictMode);
    if (!queryItems.isEmpty())
        url.setQuery(encodedQuery(queryItems), QUrl::StrictMode);
    return url;
}

HTTPRequest APIClient::makeRequest(const QByteArray &method, const QString &path, const QueryItems &queryItems,
                                   const std::optional<JSONObject> &body) const
{
    HTTPRequest request;
    request.method = method;
    request.url = makeURL(path, queryItems);
    request.headers.emplaceBack("Accept", "application/json");
    if (m_token)
        request.headers.emplaceBack("Authorization", "Bearer " + m_token->toUtf8());
    if (body) {
        request.headers.emplaceBack("Content-Type", "application/json");
        request.body = encoded(*body);
    }
    return request;
}

QCoro::Task<QByteArray> send(APIClientPtr client, QByteArray method, QString path, QueryItems queryItems,
                             std::optional<JSONObject> body)
{
    const HTTPRequest request = client->makeRequest(method, path, queryItems, body);
    const HTTPResponse response = co_await responseTo(client, request);
    auto examine = [response] { return failureOf(response); };
    const std::optional<APIError> failure = co_await inBackground(std::move(examine));
    if (failure)
        throw *failure;
    co_return response.body;
}

QCoro::Task<std::optional<QString>> sendForMessage(APIClientPtr client, QByteArray method, QString path,
                                                   std::optional<JSONObject> body)
{
    const HTTPRequest request = client->makeRequest(method, path, {}, body);
    const HTTPResponse response = co_await responseTo(client, request);
    auto examine = [response] { return messageOrFailureOf(response); };
    const Outcome<std::optional<QString>> outcome = co_await inBackground(std::move(examine));
    co_return valueOf(outcome);
}

} // namespace pingwell
