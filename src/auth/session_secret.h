#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace pingwell {

/// What the token store keeps of a session: the token, and the origin of the only server that may see it.
struct SessionSecret
{
    QString token;
    /// As `originOf` writes it; none in a secret that was kept before origins were.
    std::optional<QString> origin = std::nullopt;

    friend bool operator==(const SessionSecret &, const SessionSecret &) = default;
};

/// Whether `text` can be a bearer token: visible ASCII, not empty. Anything else would end the header it is sent in, or
/// begin another one.
[[nodiscard]] bool isToken(const QString &text);

/// Scheme, host and port of a server's address in one text (RFC 6454, section 6.2), without a port that goes without
/// saying.
[[nodiscard]] QString originOf(const QUrl &url);

/// The secret as one text: the token, a space, the origin. No token holds a space.
[[nodiscard]] QString encodedSecret(const SessionSecret &secret);

/// The secret in `text`; none unless it begins with a token. A text that is a token alone is a secret without an
/// origin.
[[nodiscard]] std::optional<SessionSecret> decodedSecret(const QString &text);

} // namespace pingwell
