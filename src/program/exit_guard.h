#pragma once

#include "store/app_store.h"

namespace pingwell {

/// Lets what is under way arrive, and what is to be remembered be written, when the process is ended by `exit` from
/// inside the event loop: that is how Qt's X11 plugin ends it when the X server has gone. Then the loop can't be
/// entered again, because it would read the broken connection; the network has a thread of its own, and its words for
/// this thread are taken without the loop. One in a process, on the main thread.
class ExitGuard
{
public:
    /// `preferences` may be null; both outlive the guard.
    ExitGuard(const AppStore &store, Preferences *preferences);
    ~ExitGuard();
    Q_DISABLE_COPY_MOVE(ExitGuard)
};

} // namespace pingwell
