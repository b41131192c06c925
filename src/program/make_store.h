#pragma once

#include "async/clock.h"
#include "desktop/keychain.h"
#include "desktop/preferences.h"
#include "program/launch_options.h"
#include "store/app_store.h"

#include <functional>
#include <memory>

namespace pingwell {

/// The pieces of the system a store may be built on; each is only opened in the modes that use it.
struct StoreParts
{
    /// The person's own preferences; never null, at worst they are forgotten at exit.
    std::function<std::shared_ptr<Preferences>()> openStandardPreferences;
    /// A test's preferences by their name; null when they can't be opened.
    std::function<std::shared_ptr<Preferences>(const QString &name)> openSuite;
    std::function<std::shared_ptr<Keychain>()> openKeychain;
    std::function<std::shared_ptr<HTTPTransport>()> openTransport;
    /// Not called by the automated live test, which must not notify. May be empty: then nobody is notified.
    std::function<std::shared_ptr<AlertNotifying>()> openNotifier;
    Backend::Authenticate authenticate;
    Backend::NextCallback nextCallback = {};
    std::function<void()> cancelAuthentication;
    std::shared_ptr<Clock> clock;
    QString hostName;
    QString version;
};

/// The preferences of the mode that `options` ask for: the person's own, a test's without what its last run left, or
/// none in the demo. A test's that can't be opened stop the program: such a test would prove nothing.
[[nodiscard]] std::shared_ptr<Preferences> openPreferences(const LaunchOptions &options, const StoreParts &parts);

/// The one store of the process, in the mode that `options` ask for, with its clock running and, where there is a
/// service, following it.
[[nodiscard]] std::unique_ptr<AppStore>
makeStore(const LaunchOptions &options, const std::shared_ptr<Preferences> &preferences, const StoreParts &parts);

} // namespace pingwell
