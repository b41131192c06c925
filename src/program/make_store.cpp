#include "program/make_store.h"

#include "auth/keychain_token_store.h"
#include "demo/demo_data.h"
#include "desktop/preference_keys.h"
#include "desktop/transient_preferences.h"
#include "model/check.h"
#include "model/identity.h"

namespace pingwell {

namespace {

/// The preferences of a test, emptied of an earlier run's values.
std::shared_ptr<Preferences> emptied(const QString &suite, const StoreParts &parts)
{
    std::shared_ptr<Preferences> preferences = parts.openSuite(suite);
    check(preferences != nullptr, "the test's preferences can't be opened");
    preferences->removeAll();
    return preferences;
}

std::unique_ptr<AppStore> makeDemoStore(const std::shared_ptr<Preferences> &preferences, const StoreParts &parts)
{
    const Instant now = parts.clock->now();
    return std::make_unique<AppStore>(demoData(now), true, preferences, now, nullptr, parts.clock);
}

std::shared_ptr<TokenStore> makeTokenStore(const LaunchOptions &options,
                                           const std::shared_ptr<Preferences> &preferences, const StoreParts &parts)
{
    if (options.sessionToken)
        return std::make_shared<MemoryTokenStore>(options.sessionToken);
    // Before the keyring is asked to erase a token, the preferences' note of it has to be on the disk: after a kill in
    // between, the next start still knows that the token must be erased.
    const auto flush = [weak = std::weak_ptr(preferences)] {
        if (const auto kept = weak.lock())
            kept->flush();
    };
    return std::make_shared<KeychainTokenStore>(parts.openKeychain(), programID + QStringLiteral(".session"),
                                                QStringLiteral("session"), flush);
}

std::shared_ptr<Backend> makeBackend(const LaunchOptions &options, const std::shared_ptr<Preferences> &preferences,
                                     const StoreParts &parts)
{
    auto backend = std::make_shared<Backend>();
    backend->tokenStore = makeTokenStore(options, preferences, parts);
    backend->transport = parts.openTransport();
    if (!options.isLiveUITest && parts.openNotifier)
        backend->notifier = parts.openNotifier();
    backend->baseURLOverride = options.apiBaseURL;
    if (!parts.hostName.isEmpty())
        backend->deviceName = parts.hostName;
    if (!parts.version.isEmpty())
        backend->appVersion = parts.version;
    backend->authenticate = parts.authenticate;
    backend->nextCallback = parts.nextCallback;
    backend->cancelAuthentication = parts.cancelAuthentication;
    return backend;
}

std::unique_ptr<AppStore> makeLiveStore(const LaunchOptions &options, const std::shared_ptr<Preferences> &preferences,
                                        const StoreParts &parts)
{
    return std::make_unique<AppStore>(SeedData{}, false, preferences, parts.clock->now(),
                                      makeBackend(options, preferences, parts), parts.clock);
}

} // namespace

std::shared_ptr<Preferences> openPreferences(const LaunchOptions &options, const StoreParts &parts)
{
    if (options.isUITest)
        return emptied(uiTestID, parts);
    if (options.isDemo)
        return std::make_shared<TransientPreferences>();
    if (options.isLiveUITest)
        return emptied(liveUITestID, parts);
    return parts.openStandardPreferences();
}

std::unique_ptr<AppStore> makeStore(const LaunchOptions &options, const std::shared_ptr<Preferences> &preferences,
                                    const StoreParts &parts)
{
    // Makes the store see an earlier sign-in.
    if (!options.isLive() && !(options.isUITest && options.signedOut))
        preferences->setString(preference_keys::sessionProvider, rawValue(AuthProvider::google));
    std::unique_ptr<AppStore> store =
        options.isLive() ? makeLiveStore(options, preferences, parts) : makeDemoStore(preferences, parts);
    store->startClock();
    store->startSync();
    return store;
}

} // namespace pingwell
