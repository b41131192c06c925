#pragma once

#include <QString>

namespace pingwell {

/// Receives the person's responses to notifications. Main thread.
class AlertResponses
{
public:
    virtual ~AlertResponses() = default;

    /// The person answered the alert in its notification.
    virtual void answer(const QString &alertId, const QString &text) = 0;

    /// The person wants to see the alert: select it and bring the main window to the front, with the focus in the reply
    /// field if `focusReply`. Without an id, only bring the window to the front. `activationToken` lets the window take
    /// the focus (xdg-activation); empty where there is none.
    virtual void open(const QString &alertId, bool focusReply, const QString &activationToken) = 0;
};

} // namespace pingwell
