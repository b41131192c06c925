#include "platform/application_adaptor.h"

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 4096;

bool isAcceptable(const QUrl &url)
{
    return url.isValid() && url.scheme() == u"pingwell"_s && url.toEncoded().size() <= longestText;
}

/// The token that lets a window come to the front: Wayland's, or X11's older one.
QByteArray activationTokenOf(const QVariantMap &platformData)
{
    for (const QString &key : {u"activation-token"_s, u"desktop-startup-id"_s}) {
        const QByteArray token = platformData.value(key).toString().toUtf8();
        if (!token.isEmpty() && token.size() <= longestText && !token.contains('\0'))
            return token;
    }
    return {};
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

ApplicationAdaptor::ApplicationAdaptor(SingleInstance *served)
    : QDBusAbstractAdaptor(served)
    , m_served(served)
{
}

void ApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    emit m_served->activated(activationTokenOf(platformData));
}

void ApplicationAdaptor::Open(const QStringList &texts, const QVariantMap &platformData)
{
    QList<QUrl> urls;
    for (const QString &text : texts) {
        // Leniently: some desktops decode a part of the URL before they hand it over.
        const QUrl url = text.size() <= longestText ? QUrl(text, QUrl::TolerantMode) : QUrl();
        if (isAcceptable(url))
            urls << url;
    }
    if (!urls.isEmpty())
        emit m_served->opened(urls, activationTokenOf(platformData));
}

void ApplicationAdaptor::ActivateAction(const QString &, const QVariantList &, const QVariantMap &) {}

} // namespace pingwell
