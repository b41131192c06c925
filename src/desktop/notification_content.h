#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The person clicked the notification itself.
inline const QString defaultActionIdentifier = QStringLiteral("default");
/// The person answered by text.
inline const QString replyActionIdentifier = QStringLiteral("reply");
/// A prefix, followed by the zero-based index of the choice that the person pressed.
inline const QString answerActionPrefix = QStringLiteral("answer.");

/// The text field of an action.
struct NotificationTextInput
{
    QString buttonTitle;
    QString placeholder;

    friend bool operator==(const NotificationTextInput &, const NotificationTextInput &) = default;
};

/// One action that a notification offers.
struct NotificationAction
{
    QString identifier;
    QString title;
    std::optional<NotificationTextInput> textInput;

    friend bool operator==(const NotificationAction &, const NotificationAction &) = default;
};

/// The actions of a notification. Notifications with the same actions have the same category.
struct NotificationCategory
{
    QString identifier;
    QList<NotificationAction> actions;

    friend bool operator==(const NotificationCategory &, const NotificationCategory &) = default;
};

/// Data that comes back with the person's response.
struct NotificationPayload
{
    QString alertId;
    QString workspaceId;
    QStringList actions;

    friend bool operator==(const NotificationPayload &, const NotificationPayload &) = default;
};

/// What a notification says, and how urgently. Texts are the agents' own; the code that draws them cleans them.
struct NotificationContent
{
    QString title;
    QString subtitle;
    QString body;
    /// Notifications of one thread are grouped.
    QString threadIdentifier;
    NotificationPayload payload;
    bool sound = false;
    /// Shown even while the person does not want to be disturbed.
    bool timeSensitive = false;
    /// None for a notification that offers no action.
    std::optional<NotificationCategory> category;

    friend bool operator==(const NotificationContent &, const NotificationContent &) = default;
};

/// One notification to show. It replaces an earlier one with the same identifier.
struct NotificationRequest
{
    QString identifier;
    NotificationContent content;
    /// Only replaces a notification that is still on the screen: one that the person dismissed does not come back.
    bool onlyReplaces = false;

    friend bool operator==(const NotificationRequest &, const NotificationRequest &) = default;
};

/// The person's action on a notification. A notification that disappears is not a response.
struct NotificationResponse
{
    NotificationPayload payload;
    QString actionIdentifier;
    /// The typed text; none for an action without a field.
    std::optional<QString> text;
    /// Lets a window take the focus (xdg-activation); empty where the desktop sent none.
    QString activationToken;
};

} // namespace pingwell
