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

/// Talks to one server on behalf of one session; a new one is made when either changes, so that an answer can be told
/// from one meant for an earlier session by the client it came through. Hold it by `std::shared_ptr`.
class APIClient
{
public:
    APIClient(QUrl baseURL, std::optional<QString> token, std::shared_ptr<HTTPTransport> transport);

    /// The managed cloud service's address.
    static QUrl defaultBaseURL();

    /// What a person typed as a server's address, as a base address: "https" unless said otherwise, no trailing slash,
    /// a path allowed. None unless it is an http or https address with a host and without query and fragment.
    static std::optional<QUrl> normalizedBaseURL(const QString &text);

    [[nodiscard]] const QUrl &baseURL() const { return m_baseURL; }
    [[nodiscard]] const std::optional<QString> &token() const { return m_token; }
    [[nodiscard]] const std::shared_ptr<HTTPTransport> &transport() const { return m_transport; }

    /// The address of `path`, which begins with "/" and is already percent-encoded, on this server.
    [[nodiscard]] QUrl makeURL(const QString &path, const QueryItems &queryItems = {}) const;

    /// The finished request, with the session's token where there is one. `APIError::badResponse()` for a path with an
    /// empty piece, "." or "..": the service gave something an identifier that would be another address.
    [[nodiscard]] Outcome<HTTPRequest> makeRequest(const QByteArray &method, const QString &path,
                                                   const std::optional<JSONObject> &body = std::nullopt) const;

private:
    QUrl m_baseURL;
    std::optional<QString> m_token;
    std::shared_ptr<HTTPTransport> m_transport;
};

using APIClientPtr = std::shared_ptr<const APIClient>;

} // namespace pingwell
