#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"

namespace pingwell {

namespace {

using namespace std::chrono_literals;

/// A pause in typing after which an address counts as typed.
constexpr auto typingSettles = 400ms;

} // namespace

/// How the chosen server is asked with whom one can sign in there.
struct AppStore::ProviderSteps
{
    static QCoro::Task<> settleAndRefresh(QPointer<AppStore> store, std::shared_ptr<Clock> clock, std::stop_token stop);
    static QCoro::Task<> run(QPointer<AppStore> store, std::optional<QUrl> baseURL);
};

void AppStore::refreshProviders()
{
    checkMainThread();
    if (!m_backend)
        return;
    m_providersTask.request_stop();
    launch("sign-in providers", ProviderSteps::run(this, effectiveBaseURL()));
}

void AppStore::refreshProvidersSoon()
{
    if (!m_backend || isSignedIn())
        return;
    m_providersTask.request_stop();
    m_providersTask = std::stop_source();
    launch("sign-in providers", ProviderSteps::settleAndRefresh(this, m_clock, m_providersTask.get_token()));
}

QCoro::Task<> AppStore::ProviderSteps::settleAndRefresh(QPointer<AppStore> store, std::shared_ptr<Clock> clock,
                                                        std::stop_token stop)
{
    co_await clock->sleep(typingSettles, stop);
    if (store && !stop.stop_requested())
        store->refreshProviders();
}

QCoro::Task<> AppStore::ProviderSteps::run(QPointer<AppStore> store, std::optional<QUrl> baseURL)
{
    if (!baseURL)
        co_return;
    const APIClientPtr client = std::make_shared<const APIClient>(*baseURL, std::nullopt, store->m_backend->transport);
    const Outcome<QList<AuthProvider>> offered = co_await endpoints::listProviders(client);
    // What the server offered last is the best guess; signing in will tell what is wrong. The person may also have
    // chosen another server meanwhile.
    if (offered.error() || !store || store->effectiveBaseURL() != baseURL)
        co_return;
    QList<AuthProvider> providers;
    for (const AuthProvider provider : allCases<AuthProvider>()) {
        if (offered.value()->contains(provider))
            providers << provider;
    }
    store->set(store->m_availableProviders, providers, &AppStore::availableProvidersChanged);
}

} // namespace pingwell
