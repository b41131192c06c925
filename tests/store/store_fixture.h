#pragma once

#include "auth/web_authenticator.h"
#include "store/app_store.h"
#include "support/in_row.h"
#include "support/manual_clock.h"
#include "support/memory_preferences.h"
#include "support/recording_notifier.h"
#include "support/scripted_transport.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>

#include <memory>

namespace pingwell {

/// The instant at which every test of the store begins.
inline constexpr Instant testStart{Seconds(1'700'000'000)};

/// One alert as the service sends it, posted `secondsAgo` before the tests begin; `more` adds and overrides keys.
[[nodiscard]] QJsonObject alertJSON(const QString &id, double secondsAgo, const QJsonObject &more = {});
[[nodiscard]] QJsonObject askJSON(const QString &id, double secondsAgo, const QJsonObject &more = {});
[[nodiscard]] QJsonObject workspaceJSON(const QString &id, const QString &role = QStringLiteral("owner"));

/// The same notice as the store holds it.
[[nodiscard]] Alert noticeOf(const QString &id, double secondsAgo, const QString &workspace = QStringLiteral("w1"),
                             const QString &topic = {});

/// A dashboard of one or more workspaces, as the service sends it.
struct DashboardJSON
{
    QJsonArray alerts = {};
    QJsonArray workspaces{workspaceJSON(QStringLiteral("w1"))};
    QJsonArray members = {};
    QJsonArray topics = {};
    QJsonArray devices = {};
    QJsonObject settings = {};

    [[nodiscard]] QByteArray body() const;
};

/// A dashboard of those alerts in workspace "w1".
[[nodiscard]] DashboardJSON dashboardOf(const QJsonArray &alerts);

/// A live store with everything around it in memory. Members may be changed before `start`.
class StoreFixture
{
public:
    StoreFixture();
    ~StoreFixture();

    /// Makes the store; with a token it is signed in at once. Nothing is fetched yet.
    void start();
    /// `start` and one refresh with that dashboard.
    void startWith(const DashboardJSON &dashboard);
    /// `start` and the first round of the live loop, with that dashboard and those invitations.
    void startLoopWith(const DashboardJSON &dashboard, const QByteArray &invitations);
    /// Runs one refresh that answers with that dashboard, and waits for its end.
    void refreshWith(const DashboardJSON &dashboard);
    /// The same with an answer of any kind; where it is held back, the refresh doesn't end.
    void refreshWith(const ScriptedAnswer &answer);
    /// Sends the person to that browser to sign in.
    void signInWith(const std::shared_ptr<WebAuthenticator> &browser) const;
    /// Gives a live loop that starts nothing but silence, for tests in which its answers don't matter.
    void letLoopsFail();
    /// Ends the session and begins that of another token.
    void changeSession();
    /// Lets the oldest held answer go, of that route where one is given, and waits for what follows.
    void release(const QByteArray &method = {}, const QByteArray &path = {});
    /// Waits until no request of the program is outstanding but the held ones.
    void settle();

    [[nodiscard]] Alert alert(const QString &id) const;

    std::shared_ptr<ScriptedTransport> transport = std::make_shared<ScriptedTransport>();
    std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>(testStart);
    std::shared_ptr<MemoryPreferences> preferences = std::make_shared<MemoryPreferences>();
    std::shared_ptr<RecordingNotifier> notifier = std::make_shared<RecordingNotifier>();
    std::shared_ptr<MemoryTokenStore> tokens = std::make_shared<MemoryTokenStore>(QStringLiteral("token-1"));
    std::shared_ptr<Backend> backend = std::make_shared<Backend>();
    std::unique_ptr<AppStore> store;
};

/// A test whose functions, and the rows of its lists, each begin with a fixture of their own.
class StoreTest : public QObject
{
    Q_OBJECT

protected:
    AppStore &store() { return *m->store; }

    /// Begins the next row of a list.
    [[nodiscard]] InRow anew(const QByteArray &row)
    {
        cleanup();
        init();
        return InRow(row);
    }

    std::unique_ptr<StoreFixture> m;

protected slots:
    virtual void init() { m = std::make_unique<StoreFixture>(); }
    virtual void cleanup() { m.reset(); }
};

} // namespace pingwell
