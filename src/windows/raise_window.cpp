#include "windows/raise_window.h"

namespace pingwell {

void raiseWindow(QWindow &window, const QByteArray &activationToken)
{
    if (window.windowStates().testFlag(Qt::WindowMinimized))
        window.showNormal();
    else
        window.show();
    window.raise();
    // Qt reads the token from this environment variable, and only when the window is already mapped.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken);
    window.requestActivate();
}

} // namespace pingwell
