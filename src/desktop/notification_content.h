#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The person clicked the notification itself.
inline const QString defaultActionIdentifier = QStringLiteral("default");
/// The person answers by text.
inline const QString replyActionIdentifier = QStringLiteral("reply");
/// Followed by the zero-based index of the choice the person pressed.
inline const QString answerActionPrefix = QStringLiteral("answer.");

/// The text field behind an action.
struct NotificationTextInput
{
    QString buttonTitle;
    QString placeholder;

    friend bool operator==(const NotificationTextInput &, const NotificationTextInput &) = default;
};

/// One thing to do with a notification.
struct NotificationAction
{
    QString identifier;
    QString title;
    std::optional<NotificationTextInput> textInput;

    friend bool operator==(const NotificationAction &, const NotificationAction &) = default;
};

/// What can be done with a notification. Two notifications that offer the same have the same category.
struct NotificationCategory
{
    QString identifier;
    QList<NotificationAction> actions;

    friend bool operator==(const NotificationCategory &, const NotificationCategory &) = default;
};

/// What comes back with the person's response.
struct NotificationPayload
{
    QString alertId;
    QString workspaceId;
    QStringList actions;

    friend bool operator==(const NotificationPayload &, const NotificationPayload &) = default;
};

/// What a notification says and how loudly. Texts are as the agents wrote them: whoever draws them cleans them.
struct NotificationContent
{
    QString title;
    QString subtitle;
    QString body;
    /// Notifications of the same thread belong together.
    QString threadIdentifier;
    NotificationPayload payload;
    bool sound = false;
    /// Matters now, even to a person who does not want to be disturbed.
    bool timeSensitive = false;
    /// None where there is nothing to do but to read it.
    std::optional<NotificationCategory> category;

    friend bool operator==(const NotificationContent &, const NotificationContent &) = default;
};

/// One notification to show; a later one of the same identifier replaces it.
struct NotificationRequest
{
    QString identifier;
    NotificationContent content;
    /// Only changes what is still on the screen: what the person has dismissed does not come back.
    bool onlyReplaces = false;

    friend bool operator==(const NotificationRequest &, const NotificationRequest &) = default;
};

/// What the person did with a notification. That it disappeared is not a response.
struct NotificationResponse
{
    NotificationPayload payload;
    QString actionIdentifier;
    /// The typed text; none where the action came without a field.
    std::optional<QString> text;
    /// Lets a window take the focus (xdg-activation); empty where the desktop sent none.
    QString activationToken;
};

} // namespace pingwell
