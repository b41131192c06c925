#pragma once

#include "model/enumerations.h"
#include "model/instant.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

namespace pingwell::devserver {

/// The tokens that are good and the sign-in codes that were handed out. RFC 7636 (PKCE, method S256).
class Sessions
{
public:
    /// Makes `token` good.
    void admit(const QString &token);
    [[nodiscard]] bool isGood(const QString &token) const;
    /// A new token, from the system's secure random numbers.
    QString open();
    void endAll();

    /// A code that can be exchanged once, within ten minutes, by whoever knows the challenge's verifier.
    QString handOutCode(const QString &challenge, AuthProvider provider, Instant now);
    /// The provider the code was handed out for; none for a code that is unknown, used, too old or not the verifier's.
    /// A code is used up by the attempt, whatever comes of it.
    std::optional<AuthProvider> redeemCode(const QString &code, const QString &verifier, Instant now);

private:
    struct Grant
    {
        QString challenge;
        AuthProvider provider = AuthProvider::google;
        Instant expiresAt{};
    };

    QSet<QString> m_tokens;
    QHash<QString, Grant> m_grants;
};

/// Whether the text has the shape of an S256 challenge or verifier: 43 characters of the base64url alphabet.
[[nodiscard]] bool looksLikeChallenge(const QString &text);

} // namespace pingwell::devserver
