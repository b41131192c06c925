#include "auth/pkce.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <array>

namespace pingwell {

namespace {

QByteArray base64URL(const QByteArray &bytes)
{
    return bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
}

} // namespace

PKCE PKCE::make()
{
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->generate(words.begin(), words.end());
    return from(QByteArray(reinterpret_cast<const char *>(words.data()), sizeof(words)));
}

PKCE PKCE::from(const QByteArray &entropy)
{
    const QByteArray verifier = base64URL(entropy);
    const QByteArray challenge = base64URL(QCryptographicHash::hash(verifier, QCryptographicHash::Sha256));
    return {.verifier = QString::fromLatin1(verifier), .challenge = QString::fromLatin1(challenge)};
}

} // namespace pingwell
