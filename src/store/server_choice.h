#pragma once

#include "api/api_client.h"
#include "async/clock.h"
#include "desktop/preferences.h"
#include "model/enumerations.h"
#include "store/backend.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>
#include <stop_token>

namespace pingwell {

/// The server that the next session is made at, and with whom one can sign in there. Remembered. Main thread.
class ServerChoice : public QObject
{
    Q_OBJECT

public:
    /// Without `backend` nobody is asked.
    ServerChoice(std::shared_ptr<Backend> backend, std::shared_ptr<Preferences> preferences,
                 std::shared_ptr<Clock> clock);
    ~ServerChoice() override;

    [[nodiscard]] ServerKind kind() const { return m_kind; }
    /// As the person typed it.
    [[nodiscard]] const QString &selfHostedURL() const { return m_selfHostedURL; }
    [[nodiscard]] const QList<AuthProvider> &providers() const { return m_providers; }
    /// The address of the server; none when the self-hosted one isn't an address.
    [[nodiscard]] std::optional<QUrl> baseURL() const;

    void setKind(ServerKind kind);
    void setSelfHostedURL(const QString &text);

    /// Asks the server which providers it offers.
    void refreshProviders();
    /// The same once the person has stopped typing.
    void refreshProvidersSoon();

signals:
    void serverChanged();
    void selfHostedURLChanged();
    void availableProvidersChanged();

private:
    static QCoro::Task<> settleAndRefresh(QPointer<ServerChoice> self, std::shared_ptr<Clock> clock,
                                          std::stop_token stop);
    static QCoro::Task<> askForProviders(QPointer<ServerChoice> self, APIClientPtr client);

    std::shared_ptr<Backend> m_backend;
    std::shared_ptr<Preferences> m_preferences;
    std::shared_ptr<Clock> m_clock;
    ServerKind m_kind = ServerKind::cloud;
    QString m_selfHostedURL;
    QList<AuthProvider> m_providers{AuthProvider::google, AuthProvider::github};
    std::stop_source m_settling{std::nostopstate};
};

} // namespace pingwell
