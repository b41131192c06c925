#pragma once

#include <QString>

namespace pingwell {

/// Where the person's reactions to notifications end up. Main thread.
class AlertResponses
{
public:
    virtual ~AlertResponses() = default;

    /// The person answered the alert from its notification.
    virtual void answer(const QString &alertId, const QString &text) = 0;

    /// The person wants to see the alert: select it and bring the main window forward, with the reply field focused if
    /// `focusReply`. Without an id it is the window alone. `activationToken` lets the window take the focus
    /// (xdg-activation); empty where there is none.
    virtual void open(const QString &alertId, bool focusReply, const QString &activationToken) = 0;
};

} // namespace pingwell
