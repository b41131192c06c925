#include "api/http_exchange.h"

#include <QDateTime>
#include <QLocale>
#include <QNetworkRequest>
#include <QTimeZone>

#include <algorithm>

namespace pingwell {

namespace {

/// How many bytes of a response Qt may buffer before they are read; without a limit the buffer grows without end.
constexpr qint64 readBufferBytes = qint64{256} * 1024;

/// Unused capacity after a body. The parser reads in blocks past the end, and would copy a body without it.
constexpr qint64 spareBytes = 64;

bool isWeb(const QUrl &url)
{
    return url.isValid() && (url.scheme() == QLatin1StringView("https") || url.scheme() == QLatin1StringView("http"));
}

/// Scheme, host and port, as RFC 6454 has it.
bool haveSameOrigin(const QUrl &left, const QUrl &right)
{
    const int defaultPort = left.scheme() == QLatin1StringView("https") ? 443 : 80;
    return left.scheme() == right.scheme() && left.host() == right.host() &&
           left.port(defaultPort) == right.port(defaultPort);
}

QNetworkRequest networkRequest(const HTTPRequest &request, const QUrl &url)
{
    QNetworkRequest prepared(url);
    prepared.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Pingwell/" PINGWELL_VERSION));
    for (const auto &[name, value] : request.headers)
        prepared.setRawHeader(name, value);
    prepared.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    prepared.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    prepared.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    prepared.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    prepared.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    prepared.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    prepared.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    prepared.setTransferTimeout(static_cast<int>(std::max<qint64>(1, request.timeout.count())));
    // Qt unpacks bodies on this thread unless the request sets Accept-Encoding itself, so the request sets it and the
    // body is unpacked in the thread pool.
    prepared.setRawHeader("Accept-Encoding", "gzip");
    return prepared;
}

/// Parses a `Date` header in the one form that servers may send today (IMF-fixdate, RFC 9110, 5.6.7); none for any
/// other form.
std::optional<Instant> dateOf(const QNetworkReply &reply)
{
    const QString text = QString::fromLatin1(reply.rawHeader("Date"));
    QDateTime date = QLocale::c().toDateTime(text, QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"));
    date.setTimeZone(QTimeZone::utc());
    return date.isValid() ? std::optional(instantFromMilliseconds(double(date.toMSecsSinceEpoch()))) : std::nullopt;
}

} // namespace

HTTPExchange::HTTPExchange(Connections connections, HTTPRequest request, TransportLimits limits, QObject *parent)
    : QObject(parent)
    , m_connections(std::move(connections))
    , m_request(std::move(request))
    , m_limits(limits)
    , m_url(m_request.url)
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, &HTTPExchange::giveUp);
}

HTTPExchange::~HTTPExchange()
{
    dropReply();
    m_response.finish(std::nullopt);
}

void HTTPExchange::start()
{
    m_deadline.start(m_limits.deadline);
    if (isWeb(m_url))
        send();
    else
        fail(APIError::offline());
}

void HTTPExchange::moveTo(const Connections &connections)
{
    if (m_request.method != "GET" || !m_reply)
        return;
    m_body.clear();
    dropReply();
    m_connections = connections;
    send();
}

void HTTPExchange::send()
{
    QNetworkRequest prepared = networkRequest(m_request, m_url);
    if (m_request.method == "GET") {
        m_reply = m_connections->get(prepared);
    } else if (m_request.body) {
        m_reply = m_connections->sendCustomRequest(prepared, m_request.method, *m_request.body);
    } else {
        // Without a body there is no Content-Type to send, but some servers require a Content-Length (RFC 9110, 8.6).
        prepared.setRawHeader("Content-Length", "0");
        m_reply = m_connections->sendCustomRequest(prepared, m_request.method, static_cast<QIODevice *>(nullptr));
    }
    m_reply->setReadBufferSize(readBufferBytes);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HTTPExchange::checkLength);
    connect(m_reply, &QNetworkReply::readyRead, this, &HTTPExchange::takeBytes);
    connect(m_reply, &QNetworkReply::finished, this, &HTTPExchange::conclude);
}

void HTTPExchange::checkLength()
{
    const qint64 length = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (length > m_limits.bodyBytes)
        fail(APIError::tooLarge());
    else if (length > m_body.capacity())
        m_body.reserve(length + spareBytes);
}

void HTTPExchange::takeBytes()
{
    while (m_reply && m_reply->bytesAvailable() > 0) {
        const QByteArray bytes = m_reply->read(readBufferBytes);
        if (bytes.isEmpty())
            return;
        if (m_body.size() + bytes.size() > m_limits.bodyBytes) {
            fail(APIError::tooLarge());
            return;
        }
        m_body.append(bytes);
    }
}

void HTTPExchange::conclude()
{
    takeBytes();
    if (!m_reply)
        return;
    if (m_reply->error() == QNetworkReply::OperationCanceledError) {
        giveUp();
        return;
    }
    if (!hasArrived()) {
        fail(APIError::offline());
        return;
    }
    if (const std::optional<QUrl> target = redirection()) {
        --m_redirectsLeft;
        m_body.clear();
        dropReply();
        m_url = *target;
        send();
        return;
    }
    HTTPResponse response;
    response.status = status();
    response.body = std::move(m_body);
    response.date = dateOf(*m_reply);
    response.contentEncoding = m_reply->rawHeader("Content-Encoding").trimmed().toLower();
    m_response.finish(std::move(response));
    end();
}

int HTTPExchange::status() const
{
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool HTTPExchange::hasArrived() const
{
    const QNetworkReply::NetworkError error = m_reply->error();
    // Error codes from here on only repeat a status of 400 and above. With a lower status they mean that the body was
    // cut short or damaged.
    return error == QNetworkReply::NoError || (error >= QNetworkReply::ContentAccessDenied && status() >= 400);
}

std::optional<QUrl> HTTPExchange::redirection() const
{
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (m_request.method != "GET" || m_redirectsLeft == 0 || target.isEmpty())
        return std::nullopt;
    const QUrl resolved = m_reply->url().resolved(target);
    if (!resolved.isValid() || !resolved.userInfo().isEmpty() || !haveSameOrigin(m_request.url, resolved))
        return std::nullopt;
    return resolved;
}

/// Handles Qt's cancellation of the reply, which only happens when the server was silent for too long: a reply that we
/// cancel is disconnected first.
void HTTPExchange::giveUp()
{
    emit timedOut();
    fail(APIError::offline());
}

void HTTPExchange::fail(const APIError &error)
{
    m_response.fail(error);
    end();
}

void HTTPExchange::end()
{
    m_deadline.stop();
    dropReply();
    deleteLater();
}

void HTTPExchange::dropReply()
{
    if (!m_reply)
        return;
    // `abort` emits `finished` before it returns, so the reply is disconnected first.
    m_reply->disconnect(this);
    if (m_reply->isRunning())
        m_reply->abort();
    m_reply->deleteLater();
    m_reply.clear();
}

} // namespace pingwell
