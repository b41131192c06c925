#pragma once

#include "api/http_transport.h"
#include "api/json.h"
#include "api/outcome.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>
#include <utility>

namespace pingwell {

/// The parameters of a URL's query, in the order in which they are written.
using QueryItems = QList<std::pair<QString, QString>>;

/// Talks to one server for one session. A new client is made whenever the server or the session changes, so that a late
/// response is recognised as an earlier session's by the client that requested it. Hold it by `std::shared_ptr`.
class APIClient
{
public:
    APIClient(QUrl baseURL, std::optional<QString> token, std::shared_ptr<HTTPTransport> transport);

    /// The managed cloud service's address.
    static QUrl defaultBaseURL();

    /// Converts what a person typed as a server's address to a base address: "https" unless the text names a scheme, no
    /// trailing slash, a path allowed. None unless it is an http or https address with a host and without query and
    /// fragment.
    static std::optional<QUrl> normalizedBaseURL(const QString &text);

    [[nodiscard]] const QUrl &baseURL() const { return m_baseURL; }
    [[nodiscard]] const std::optional<QString> &token() const { return m_token; }
    [[nodiscard]] const std::shared_ptr<HTTPTransport> &transport() const { return m_transport; }

    /// The address of `path`, which begins with "/" and is already percent-encoded, on this server.
    [[nodiscard]] QUrl makeURL(const QString &path, const QueryItems &queryItems = {}) const;

    /// The complete request, with the session's token if there is one. `APIError::badResponse()` for a path with an
    /// empty segment, "." or "..": the service sent an identifier that would make the request address another resource.
    [[nodiscard]] Outcome<HTTPRequest> makeRequest(const QByteArray &method, const QString &path,
                                                   const std::optional<JSONObject> &body = std::nullopt) const;

private:
    QUrl m_baseURL;
    std::optional<QString> m_token;
    std::shared_ptr<HTTPTransport> m_transport;
};

using APIClientPtr = std::shared_ptr<const APIClient>;

} // namespace pingwell
