#pragma once

#include <QString>
#include <QUrl>

/// The names under which the program remembers things; they outlive versions and must not change.
namespace pingwell::preference_keys {

inline const QString sessionAccount = QStringLiteral("pingwell.session.account");
inline const QString sessionBaseURL = QStringLiteral("pingwell.session.baseURL");
inline const QString sessionProvider = QStringLiteral("pingwell.session.provider");
/// True while the keychain may hold a token that is to be no more.
inline const QString sessionErasingOwed = QStringLiteral("pingwell.session.erasingOwed");
inline const QString serverKind = QStringLiteral("pingwell.server.kind");
inline const QString selfHostedURL = QStringLiteral("pingwell.server.selfHostedURL");
inline const QString quietHoursEnabled = QStringLiteral("pingwell.settings.quietHoursEnabled");
inline const QString activeWorkspace = QStringLiteral("pingwell.workspace.active");
inline const QString unreadAlerts = QStringLiteral("pingwell.alerts.unread");
inline const QString lastNotifiedAt = QStringLiteral("pingwell.notifications.lastAt");
inline const QString lastNotifiedOwner = QStringLiteral("pingwell.notifications.owner");
inline const QString notifiedAhead = QStringLiteral("pingwell.notifications.ahead");
/// One text a notification that is on the screen: bus, server, number, identifier.
inline const QString shownNotifications = QStringLiteral("pingwell.notifications.shown");
inline const QString promptDismissed = QStringLiteral("pingwell.notifications.promptDismissed");

/// One device identifier for each server.
inline QString device(const QUrl &baseURL)
{
    return QStringLiteral("pingwell.device.") + baseURL.toString(QUrl::FullyEncoded);
}

inline QString responseTimeoutMinutes(const QString &workspaceId)
{
    return QStringLiteral("pingwell.workspace.") + workspaceId + QStringLiteral(".responseTimeoutMinutes");
}

inline QString timeoutAction(const QString &workspaceId)
{
    return QStringLiteral("pingwell.workspace.") + workspaceId + QStringLiteral(".timeoutAction");
}

/// Whether a change of that key must be found by the next start though the program is killed right after it: who is
/// signed in and as which device, what was announced and is on the screen, and what is offered once.
inline bool mustOutlastAKill(const QString &key)
{
    return key.startsWith(QStringLiteral("pingwell.session.")) || key.startsWith(QStringLiteral("pingwell.device.")) ||
           key.startsWith(QStringLiteral("pingwell.notifications.")) ||
           key.startsWith(QStringLiteral("pingwell.loginItem."));
}

} // namespace pingwell::preference_keys
