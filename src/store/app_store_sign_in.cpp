#include "store/app_store.h"

namespace pingwell {

void AppStore::setServer(ServerKind server)
{
    checkMainThread();
    m_servers.setKind(server);
    if (!isSignedIn())
        m_servers.refreshProvidersSoon();
}

void AppStore::setServerWord(const QString &word)
{
    if (const auto server = fromRawValue<ServerKind>(word))
        setServer(*server);
}

void AppStore::setSelfHostedURL(const QString &text)
{
    checkMainThread();
    m_servers.setSelfHostedURL(text);
    if (!isSignedIn())
        m_servers.refreshProvidersSoon();
}

void AppStore::refreshProviders()
{
    checkMainThread();
    m_servers.refreshProviders();
}

void AppStore::signIn(const QString &provider)
{
    checkMainThread();
    const auto known = fromRawValue<AuthProvider>(provider);
    if (!known)
        return;
    if (m_backend)
        m_signIn.start(*known);
    else
        signInToDemo(*known);
}

void AppStore::cancelSignIn()
{
    checkMainThread();
    if (!m_signIn.isUnderWay())
        return;
    m_signIn.close();
    restoreLateSession();
}

void AppStore::completeSignIn(const QUrl &baseURL, const Session &session)
{
    persistSession(*session.token, baseURL, session.account);
    startSync();
    m_signIn.close();
}

} // namespace pingwell
