#pragma once

#include "model/alert.h"

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
    /// only where the person belongs to more than one.
    virtual void deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound) = 0;

    /// Takes back the notifications of the alerts with these ids, shown or waiting to be.
    virtual void remove(const QStringList &identifiers) = 0;

    /// Takes back every notification of the program.
    virtual void removeAll() = 0;

    /// Shows the alert again because the answer given from its notification was not accepted; `message` says why. Only
    /// a critical alert makes a sound for it.
    virtual void deliverRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                                const QString &message) = 0;

    /// Shows a message of the program itself, about no alert; pressing it opens the main window. A later one with the
    /// same `identifier` replaces it.
    virtual void deliverMessage(const QString &identifier, const QString &title, const QString &message) = 0;
};

} // namespace pingwell
