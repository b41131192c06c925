#include "ui/signin/server_in_use.h"

#include "text/display_text.h"
#include "ui/engine/replace_store.h"

namespace pingwell {

void ServerInUse::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
    if (store) {
        for (const auto moved : {&AppStore::accountChanged, &AppStore::serverChanged, &AppStore::selfHostedURLChanged})
            connect(store, moved, this, &ServerInUse::changed);
    }
    emit storeChanged();
    emit changed();
}

QString ServerInUse::host() const
{
    if (!m_store || !m_store->isLive())
        return {};
    const QUrl url = m_store->client() ? m_store->client()->baseURL() : m_store->effectiveBaseURL().value_or(QUrl());
    if (url == APIClient::defaultBaseURL())
        return {};
    return displayName(url.adjusted(QUrl::RemoveUserInfo).authority());
}

bool ServerInUse::isFixed() const
{
    if (!m_store || !m_store->isLive())
        return false;
    const auto chosen = m_store->server() == ServerKind::cloud ? std::optional(APIClient::defaultBaseURL())
                                                               : APIClient::normalizedBaseURL(m_store->selfHostedURL());
    return m_store->effectiveBaseURL() != chosen;
}

} // namespace pingwell
