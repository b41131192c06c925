#pragma once

#include <QByteArray>
#include <QWindow>

namespace pingwell {

/// Shows `window` and asks the desktop to give it the focus. `activationToken` proves to a Wayland compositor that the
/// person requested it (XDG Activation); empty where there is none.
void raiseWindow(QWindow &window, const QByteArray &activationToken);

} // namespace pingwell
