#pragma once

#include <QString>
#include <QUrl>

/// The keys of the program's preferences. Later versions read them, so they must not change.
namespace pingwell::preference_keys {

inline const QString sessionAccount = QStringLiteral("pingwell.session.account");
inline const QString sessionBaseURL = QStringLiteral("pingwell.session.baseURL");
inline const QString sessionProvider = QStringLiteral("pingwell.session.provider");
/// True while the keychain may still hold a token that has to be erased.
inline const QString sessionErasingOwed = QStringLiteral("pingwell.session.erasingOwed");
inline const QString serverKind = QStringLiteral("pingwell.server.kind");
inline const QString selfHostedURL = QStringLiteral("pingwell.server.selfHostedURL");
inline const QString quietHoursEnabled = QStringLiteral("pingwell.settings.quietHoursEnabled");
inline const QString activeWorkspace = QStringLiteral("pingwell.workspace.active");
inline const QString unreadAlerts = QStringLiteral("pingwell.alerts.unread");
inline const QString lastNotifiedAt = QStringLiteral("pingwell.notifications.lastAt");
inline const QString lastNotifiedOwner = QStringLiteral("pingwell.notifications.owner");
inline const QString notifiedAhead = QStringLiteral("pingwell.notifications.ahead");
/// One text for each notification on the screen: bus, server, number, identifier.
inline const QString shownNotifications = QStringLiteral("pingwell.notifications.shown");
inline const QString promptDismissed = QStringLiteral("pingwell.notifications.promptDismissed");

/// The device identifier for one server.
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

/// Whether a change of this key is written at once, so that the next start finds it even if the program is killed right
/// after the change: the session, the device, the notifications, and whether start at log-in was offered.
inline bool mustOutlastAKill(const QString &key)
{
    return key.startsWith(QStringLiteral("pingwell.session.")) || key.startsWith(QStringLiteral("pingwell.device.")) ||
           key.startsWith(QStringLiteral("pingwell.notifications.")) ||
           key.startsWith(QStringLiteral("pingwell.loginItem."));
}

} // namespace pingwell::preference_keys
