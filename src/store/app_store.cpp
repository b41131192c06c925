#include "store/app_store.h"

#include "desktop/preference_keys.h"
#include "desktop/transient_preferences.h"
#include "model/check.h"

#include <QThread>

namespace pingwell {

namespace {

/// Those that were given, or else some for this run alone, in which the person of the demo is signed in if wanted.
std::shared_ptr<Preferences> remembering(std::shared_ptr<Preferences> given, bool signedIn)
{
    if (given)
        return given;
    const auto transient = std::make_shared<TransientPreferences>();
    if (signedIn)
        transient->setString(preference_keys::sessionProvider, rawValue(AuthProvider::google));
    return transient;
}

} // namespace

AppStore::AppStore(SeedData seed, bool signedIn, std::shared_ptr<Preferences> defaults, Instant now,
                   std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, QObject *parent)
    : AppState(seed, defaults = remembering(std::move(defaults), signedIn), now, std::move(backend), clock,
               handlersOf(this), parent)
    , m_seed(std::move(seed))
    , m_defaults(std::move(defaults))
{
    chooseFirstWorkspace();
    if (m_backend) {
        openStoredSession();
        m_notifications.findLeftAsks();
        restoreSession();
    } else {
        restoreDemo();
    }
}

AppStore::~AppStore() = default;

AppState::Handlers AppStore::handlersOf(AppStore *store)
{
    return {.tellFailure = [store](const APIError &error) { store->tellFailure(error); },
            .sync = {
                .client = [store] { return store->client(); },
                .takeDashboard = [store](FetchedDashboard fetched) { store->takeDashboard(std::move(fetched)); },
                .takeAccount = [store](const Account &account) { store->takeAccount(account); },
                .takeInvitations = [store](const QList<Invitation> &invitations) { store->m_records.set(invitations); },
                .deviceID = [store] { return store->deviceIdentifier(); },
                .takeDevice = [store](const std::optional<Device> &device) { store->takeDevice(device); },
                .endSession = [store](const QString &message) { store->endRefusedSession(message); }},
            .signIn = {.complete = [store](const QUrl &baseURL,
                                           const Session &session) { store->completeSignIn(baseURL, session); },
                       .findSession =
                           [store] {
                               store->restoreLateSession();
                               return store->m_client != nullptr;
                           }}};
}

void AppStore::checkMainThread() const
{
    check(QThread::currentThread() == thread(), "the store was called from another thread than its own");
}

void AppStore::startClock()
{
    checkMainThread();
    m_ticker.start();
}

void AppStore::setWatched(bool watched)
{
    checkMainThread();
    m_ticker.setWatched(watched);
}

void AppStore::showToast(const QString &message, bool isError)
{
    checkMainThread();
    m_toasts.show(message, isError);
}

void AppStore::tellFailure(const APIError &error)
{
    if (error.status() == 401)
        endRefusedSession(error.message());
    else
        showToast(error.message(), true);
}

void AppStore::tellIfForgotten()
{
    if (m_toldOfForgetting)
        return;
    m_defaults->whenWritten([store = QPointer(this)](bool lasts) {
        if (lasts || !store || std::exchange(store->m_toldOfForgetting, true))
            return;
        store->showToast(
            QStringLiteral("Pingwell couldn't save this on your computer. It holds until you quit Pingwell."), true);
    });
}

} // namespace pingwell
