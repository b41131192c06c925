#include "program/exit_guard.h"

#include "program/pingwell_app.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace pingwell {

namespace {

const AppStore *guarded = nullptr;
Preferences *guardedPreferences = nullptr;

void finishWithoutLoop()
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause{5};
    const Clock::time_point end = Clock::now() + PingwellApp::quitPatience;
    while (guarded && guarded->hasUnfinishedWork() && Clock::now() < end) {
        QCoreApplication::sendPostedEvents();
        std::this_thread::sleep_for(pause);
    }
    if (guardedPreferences)
        guardedPreferences->flush();
}

} // namespace

ExitGuard::ExitGuard(const AppStore &store, Preferences *preferences)
{
    guarded = &store;
    guardedPreferences = preferences;
    // Exit handlers run in reverse order of their registration. The network and the thread pool have registered theirs
    // by the time of the first dashboard, so that this handler runs before theirs.
    QObject::connect(&store, &AppStore::hasLoadedChanged, &store,
                     [] { [[maybe_unused]] static const bool registered = std::atexit(finishWithoutLoop) == 0; });
}

ExitGuard::~ExitGuard()
{
    guarded = nullptr;
    guardedPreferences = nullptr;
}

} // namespace pingwell
