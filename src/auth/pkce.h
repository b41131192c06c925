#pragma once

#include <QByteArray>
#include <QString>

namespace pingwell {

/// The secret of one sign-in and its fingerprint: whoever exchanges the code must know the verifier (RFC 7636).
struct PKCE
{
    /// 43 characters of base64url, made of 32 random bytes.
    QString verifier;
    /// The verifier's SHA-256, 43 characters of base64url (method "S256").
    QString challenge;

    /// A fresh pair from the system's secure random generator.
    static PKCE make();
    /// The pair of these random bytes.
    static PKCE from(const QByteArray &entropy);
};

} // namespace pingwell
