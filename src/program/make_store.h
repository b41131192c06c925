#pragma once

#include "async/clock.h"
#include "desktop/keychain.h"
#include "desktop/preferences.h"
#include "program/launch_options.h"
#include "store/app_store.h"

#include <functional>
#include <memory>

namespace pingwell {

/// The parts of the system that a store uses; each is opened only in the modes that use it.
struct StoreParts
{
    /// The person's own preferences. Never null; if they can't be written they last until the program ends.
    std::function<std::shared_ptr<Preferences>()> openStandardPreferences;
    /// A test's preferences by their name; null when they can't be opened.
    std::function<std::shared_ptr<Preferences>(const QString &name)> openSuite;
    std::function<std::shared_ptr<Keychain>()> openKeychain;
    std::function<std::shared_ptr<HTTPTransport>()> openTransport;
    /// Not called in the automated live test, which must not show notifications. May be empty: then there are none.
    std::function<std::shared_ptr<AlertNotifying>()> openNotifier;
    Backend::Authenticate authenticate;
    Backend::NextCallback nextCallback = {};
    std::function<void()> cancelAuthentication;
    std::shared_ptr<Clock> clock;
    QString hostName;
    QString version;
};

/// The preferences of the mode in `options`: the person's own, a test's, emptied of its last run's values, or in
/// the demo some that are lost at the end. Stops the program when a test's preferences can't be opened, because such a
/// test would prove nothing.
[[nodiscard]] std::shared_ptr<Preferences> openPreferences(const LaunchOptions &options, const StoreParts &parts);

/// Makes the one store of the process for the mode in `options`. Its clock runs, and where there is a service, the
/// store polls it.
[[nodiscard]] std::unique_ptr<AppStore>
makeStore(const LaunchOptions &options, const std::shared_ptr<Preferences> &preferences, const StoreParts &parts);

} // namespace pingwell
