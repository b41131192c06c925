#pragma once

#include "model/alert.h"
#include "notify/answer_refusal.h"

#include <QStringList>

#include <optional>

namespace pingwell {

/// How the store reaches the person outside the windows. Demo and test modes run without one. Main thread; nothing here
/// waits or fails.
class AlertNotifying
{
public:
    virtual ~AlertNotifying() = default;

    /// Shows one alert as a notification; one already shown for the same alert is replaced. `workspaceName` is named
    /// only where the person belongs to more than one. What the alert offers is offered only where the person
    /// `canAnswer`.
    virtual void deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound,
                         bool canAnswer) = 0;

    /// Takes back the notifications of the alerts with these ids, shown or waiting to be.
    virtual void remove(const QStringList &identifiers) = 0;

    /// Takes back every notification of the program.
    virtual void removeAll() = 0;

    /// Says that an answer to the alert was not accepted, in the place of the alert's notification. It can be answered
    /// there where the refusal says so. Only a critical alert makes a sound for it.
    virtual void deliverRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                                const AnswerRefusal &refusal) = 0;

    /// The asks with these ids wait no longer: their notifications are taken back. One that tells of a refusal stays to
    /// be read, without the buttons.
    virtual void endAsks(const QStringList &alertIDs) = 0;

    /// The alerts whose notifications an earlier run, that was killed, left on the screen, until each is removed or
    /// delivered anew. They have been taken from the screen.
    [[nodiscard]] virtual QStringList leftBehind() const = 0;

    /// Shows a message of the program itself, about no alert; pressing it opens the main window. A later one with the
    /// same `identifier` replaces it.
    virtual void deliverMessage(const QString &identifier, const QString &title, const QString &message) = 0;
};

} // namespace pingwell
