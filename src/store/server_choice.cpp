#include "store/server_choice.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "desktop/preference_keys.h"

namespace pingwell {

namespace {

using namespace std::chrono_literals;

/// A pause in typing after which an address counts as typed.
constexpr auto typingSettles = 400ms;

} // namespace

ServerChoice::ServerChoice(std::shared_ptr<Backend> backend, std::shared_ptr<Preferences> preferences,
                           std::shared_ptr<Clock> clock)
    : m_backend(std::move(backend))
    , m_preferences(std::move(preferences))
    , m_clock(std::move(clock))
{
    const QString kind = m_preferences->string(preference_keys::serverKind).value_or(QString());
    m_kind = fromRawValue<ServerKind>(kind).value_or(ServerKind::cloud);
    m_selfHostedURL = m_preferences->string(preference_keys::selfHostedURL).value_or(QString());
}

ServerChoice::~ServerChoice()
{
    m_settling.request_stop();
}

std::optional<QUrl> ServerChoice::baseURL() const
{
    if (m_backend && m_backend->baseURLOverride)
        return m_backend->baseURLOverride;
    if (m_kind == ServerKind::selfHosted)
        return APIClient::normalizedBaseURL(m_selfHostedURL);
    return APIClient::defaultBaseURL();
}

void ServerChoice::setKind(ServerKind kind)
{
    if (kind != m_kind) {
        m_kind = kind;
        emit serverChanged();
    }
    m_preferences->setString(preference_keys::serverKind, rawValue(kind));
}

void ServerChoice::setSelfHostedURL(const QString &text)
{
    if (text != m_selfHostedURL) {
        m_selfHostedURL = text;
        emit selfHostedURLChanged();
    }
    m_preferences->setString(preference_keys::selfHostedURL, text);
}

void ServerChoice::refreshProviders()
{
    m_settling.request_stop();
    const auto url = baseURL();
    if (m_backend && url)
        launch("sign-in providers",
               askForProviders(this, std::make_shared<const APIClient>(*url, std::nullopt, m_backend->transport)));
}

void ServerChoice::refreshProvidersSoon()
{
    if (!m_backend)
        return;
    m_settling.request_stop();
    m_settling = std::stop_source();
    launch("sign-in providers", settleAndRefresh(this, m_clock, m_settling.get_token()));
}

QCoro::Task<> ServerChoice::settleAndRefresh(QPointer<ServerChoice> self, std::shared_ptr<Clock> clock,
                                             std::stop_token stop)
{
    co_await clock->sleep(typingSettles, stop);
    if (self && !stop.stop_requested())
        self->refreshProviders();
}

QCoro::Task<> ServerChoice::askForProviders(QPointer<ServerChoice> self, APIClientPtr client)
{
    const Outcome<QList<AuthProvider>> offered = co_await endpoints::listProviders(client);
    // What the server offered last is the best guess; signing in will tell what is wrong. The person may also have
    // chosen another server meanwhile.
    if (offered.error() || !self || self->baseURL() != client->baseURL())
        co_return;
    QList<AuthProvider> providers;
    for (const AuthProvider provider : allCases<AuthProvider>()) {
        if (offered.value()->contains(provider))
            providers << provider;
    }
    if (providers == self->m_providers)
        co_return;
    self->m_providers = providers;
    emit self->availableProvidersChanged();
}

} // namespace pingwell
