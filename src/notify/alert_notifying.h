#pragma once

#include "model/alert.h"
#include "notify/answer_refusal.h"

#include <QStringList>

#include <optional>

namespace pingwell {

/// Shows the store's alerts and messages as notifications. The demo and the tests run without one. Main thread; no
/// function waits or fails.
class AlertNotifying
{
public:
    virtual ~AlertNotifying() = default;

    /// Shows one alert as a notification, which replaces an earlier one for the same alert. `workspaceName` is given
    /// only where the person belongs to more than one workspace. The notification offers actions only if `canAnswer`.
    virtual void deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound,
                         bool canAnswer) = 0;

    /// Removes the notifications of the alerts with these ids, shown or still being sent.
    virtual void remove(const QStringList &identifiers) = 0;

    /// Removes every notification of the program.
    virtual void removeAll() = 0;

    /// Replaces the alert's notification by one that says why its answer was not accepted. It offers the alert's
    /// actions if `refusal` says that the ask still waits. Only a critical alert makes a sound for it.
    virtual void deliverRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                                const AnswerRefusal &refusal) = 0;

    /// Removes the notifications of the asks with these ids, which no longer wait. A notification about a refusal
    /// stays, without its buttons, so that the person can read it.
    virtual void endAsks(const QStringList &alertIDs) = 0;

    /// The alerts whose notifications a killed run left on the screen. Those notifications are removed by the
    /// notification centre; each alert stays listed until it is removed or delivered again.
    [[nodiscard]] virtual QStringList leftBehind() const = 0;

    /// Shows a message of the program that belongs to no alert; pressing it opens the main window. A later message with
    /// the same `identifier` replaces it.
    virtual void deliverMessage(const QString &identifier, const QString &title, const QString &message) = 0;
};

} // namespace pingwell
