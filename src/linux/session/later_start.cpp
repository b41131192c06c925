#include "linux/session/later_start.h"

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 4096;
const QString waylandToken = u"activation-token"_s;
const QString x11Token = u"desktop-startup-id"_s;

bool isAcceptable(const QUrl &url)
{
    return url.isValid() && url.scheme() == u"pingwell"_s && url.toEncoded().size() <= longestText;
}

} // namespace

QStringList acceptableTexts(const QList<QUrl> &urls)
{
    QStringList texts;
    for (const QUrl &url : urls) {
        if (isAcceptable(url))
            texts << QString::fromLatin1(url.toEncoded());
    }
    return texts;
}

QList<QUrl> acceptableURLs(const QStringList &texts)
{
    QList<QUrl> urls;
    for (const QString &text : texts) {
        const QUrl url = text.size() <= longestText ? QUrl(text, QUrl::TolerantMode) : QUrl();
        if (isAcceptable(url))
            urls << url;
    }
    return urls;
}

QVariantMap platformDataOfThisStart()
{
    QVariantMap data;
    if (const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN"); !token.isEmpty())
        data.insert(waylandToken, QString::fromUtf8(token));
    if (const QByteArray id = qgetenv("DESKTOP_STARTUP_ID"); !id.isEmpty())
        data.insert(x11Token, QString::fromUtf8(id));
    return data;
}

QByteArray activationTokenOf(const QVariantMap &platformData)
{
    for (const QString &key : {waylandToken, x11Token}) {
        const QByteArray token = platformData.value(key).toString().toUtf8();
        if (!token.isEmpty() && token.size() <= longestText && !token.contains('\0'))
            return token;
    }
    return {};
}

} // namespace pingwell
