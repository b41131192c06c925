#include "linux/session/application_adaptor.h"

#include "linux/session/later_start.h"

namespace pingwell {

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
    const QList<QUrl> urls = acceptableURLs(texts);
    if (!urls.isEmpty())
        emit m_served->opened(urls, activationTokenOf(platformData));
}

void ApplicationAdaptor::ActivateAction(const QString &, const QVariantList &, const QVariantMap &) {}

} // namespace pingwell
