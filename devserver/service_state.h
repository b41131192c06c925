#pragma once

#include "model/account.h"
#include "model/alert.h"
#include "model/device.h"
#include "model/invitation.h"
#include "model/member.h"
#include "model/notification_settings.h"
#include "model/topic.h"
#include "model/workspace.h"
#include "sessions.h"

#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace pingwell::devserver {

/// An alert as the service keeps it.
struct ServedAlert
{
    Alert alert;
    std::optional<Instant> answeredAt;
};

/// Everything the service knows, in memory, of the one person it serves. The look-ups throw a 404 `Refusal` for what is
/// not there; the references they return live until the list they point into changes.
struct ServiceState
{
    Account account;
    QList<Workspace> workspaces;
    /// By workspace id.
    QMap<QString, QList<Member>> members;
    QList<Topic> topics;
    /// Newest first.
    QList<ServedAlert> alerts;
    QList<Device> devices;
    QList<Invitation> invitations;
    NotificationSettings settings;
    Sessions sessions;

    Workspace &workspace(const QString &id);
    /// The workspace, when the person owns or administers it; else a 403 `Refusal`.
    Workspace &managedWorkspace(const QString &id);
    /// The workspace, when the person is more than a viewer in it; else a 403 `Refusal` with `message`.
    Workspace &contributedWorkspace(const QString &id, const QString &message);
    ServedAlert &alert(const QString &id);
    ServedAlert &alert(const QString &workspaceId, const QString &id);
    Topic &topic(const QString &workspaceId, const QString &id);
    Member &member(const QString &workspaceId, const QString &id);
    Device &device(const QString &id);

    /// Takes the alert in: an id of its own unless it brings one, its topic (made when it is new), and whether it is
    /// delivered.
    const Alert &post(Alert alert, Instant now);

    /// Applies its workspace's time-out action to every ask whose deadline has passed.
    void settleDeadlines(Instant now);
    /// The earliest deadline of an ask that still waits.
    [[nodiscard]] std::optional<Instant> nextDeadline() const;

    /// Removes the workspace with all that belongs to it.
    void removeWorkspace(const QString &id);

    /// A person with a personal workspace and nothing else.
    void startEmpty();
    /// A person in the middle of a working day: several roles, asks of every state.
    void startDemo(Instant now);
};

/// A new identifier: the prefix, a hyphen, and eight random characters.
[[nodiscard]] QString newId(const QString &prefix);

} // namespace pingwell::devserver
