#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace pingwell {

/// What the token store keeps: the session's token, and the origin of the only server that may receive it.
struct SessionSecret
{
    QString token;
    /// As `originOf` writes it; none in a secret that an earlier version stored without an origin.
    std::optional<QString> origin = std::nullopt;

    friend bool operator==(const SessionSecret &, const SessionSecret &) = default;
};

/// Whether `text` can be a bearer token: visible ASCII, not empty. Any other character could end the HTTP header that
/// carries the token, or start another header.
[[nodiscard]] bool isToken(const QString &text);

/// Scheme, host and port of a server's address as one text (RFC 6454, section 6.2). The scheme's default port is
/// omitted.
[[nodiscard]] QString originOf(const QUrl &url);

/// The secret as one text: the token, a space, the origin. A token contains no space.
[[nodiscard]] QString encodedSecret(const SessionSecret &secret);

/// The secret in `text`; none unless `text` begins with a token. A text that is only a token gives a secret without an
/// origin.
[[nodiscard]] std::optional<SessionSecret> decodedSecret(const QString &text);

} // namespace pingwell
