#include "sessions.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

constexpr QByteArray::Base64Options base64Url = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;
constexpr Seconds codeLifetime{600};

QString randomText()
{
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->generate(words.begin(), words.end());
    const QByteArray bytes(reinterpret_cast<const char *>(words.data()), sizeof(words));
    return QString::fromLatin1(bytes.toBase64(base64Url));
}

QString challengeOf(const QString &verifier)
{
    const QByteArray hash = QCryptographicHash::hash(verifier.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toBase64(base64Url));
}

} // namespace

void Sessions::admit(const QString &token)
{
    m_tokens.insert(token);
}

bool Sessions::isGood(const QString &token) const
{
    return m_tokens.contains(token);
}

QString Sessions::open()
{
    const QString token = randomText();
    m_tokens.insert(token);
    return token;
}

void Sessions::endAll()
{
    m_tokens.clear();
    m_grants.clear();
}

QString Sessions::handOutCode(const QString &challenge, AuthProvider provider, Instant now)
{
    const QString code = randomText();
    m_grants.insert(code, {challenge, provider, now + codeLifetime});
    return code;
}

std::optional<AuthProvider> Sessions::redeemCode(const QString &code, const QString &verifier, Instant now)
{
    if (!m_grants.contains(code))
        return std::nullopt;
    const Grant grant = m_grants.take(code);
    if (now >= grant.expiresAt || challengeOf(verifier) != grant.challenge)
        return std::nullopt;
    return grant.provider;
}

bool looksLikeChallenge(const QString &text)
{
    static const QRegularExpression shape(u"^[A-Za-z0-9_-]{43}$"_s);
    return shape.match(text).hasMatch();
}

} // namespace pingwell::devserver
