#pragma once

#include <QByteArray>
#include <QString>

namespace pingwell {

/// The PKCE pair of one sign-in (RFC 7636): the server exchanges the code only for whoever knows the verifier.
struct PKCE
{
    /// 43 characters of base64url that encode 32 random bytes.
    QString verifier;
    /// The verifier's SHA-256, 43 characters of base64url (method "S256").
    QString challenge;

    /// A new pair from the system's secure random generator.
    static PKCE make();
    /// The pair made from these random bytes.
    static PKCE from(const QByteArray &entropy);
};

} // namespace pingwell
