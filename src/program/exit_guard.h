#pragma once

#include "store/app_store.h"

namespace pingwell {

/// Waits for requests under way and writes the preferences when `exit` is called inside the event loop: Qt's X11 plugin
/// does so when the X server is gone. The event loop can't be used then, because it would read the broken connection.
/// The network runs on a thread of its own; the guard delivers its posted events to this thread without the loop. One
/// in a process, main thread.
class ExitGuard
{
public:
    /// `preferences` may be null; both outlive the guard.
    ExitGuard(const AppStore &store, Preferences *preferences);
    ~ExitGuard();
    Q_DISABLE_COPY_MOVE(ExitGuard)
};

} // namespace pingwell
