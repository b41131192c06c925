#pragma once

#include "api/http_transport.h"
#include "auth/token_store.h"
#include "auth/web_authenticator.h"
#include "notify/alert_notifying.h"

#include <QCoroTask>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace pingwell {

/// What a live store works with. Demo stores have none.
struct Backend
{
    /// Opens the URL in the system's browser and resumes with the redirect to the scheme.
    using Authenticate =
        std::function<QCoro::Task<Outcome<WebAuthenticator::Return>>(QUrl url, QString callbackScheme)>;
    using NextCallback = std::function<QCoro::Task<WebAuthenticator::Return>()>;

    std::shared_ptr<TokenStore> tokenStore;
    std::shared_ptr<HTTPTransport> transport;
    /// None in the modes that must not notify.
    std::shared_ptr<AlertNotifying> notifier;
    /// The server given on the command line; it goes before every stored or chosen one.
    std::optional<QUrl> baseURLOverride;
    QString deviceName = QStringLiteral("Mac");
    QString appVersion = QStringLiteral("0");
    Authenticate authenticate;
    /// Resumes with what the browser brings next in the same authentication. May be empty: then the first redirect is
    /// the only one.
    NextCallback nextCallback;
    /// Ends an authentication under way as if the browser had been closed.
    std::function<void()> cancelAuthentication;
    std::chrono::milliseconds pollInterval{15'000};
    /// The device is announced on every so many polls; never 0.
    int heartbeatEvery = 20;
    /// Invitations are fetched on every so many polls; never 0.
    int invitesEvery = 4;
};

} // namespace pingwell
