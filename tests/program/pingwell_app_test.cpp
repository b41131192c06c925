#include "demo/demo_data.h"
#include "desktop/preference_keys.h"
#include "program/pingwell_app.h"
#include "store_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class FakeStatusItem final : public StatusItem
{
public:
    bool isAvailable() const override { return available; }
    void setContent(const QIcon &icon, const QString &label, const QString &description) override
    {
        hasIcon = !icon.isNull();
        labels += label;
        descriptions += description;
    }

    bool available = true;
    bool hasIcon = false;
    QStringList labels;
    QStringList descriptions;
};

using Act = void (*)(AppStore &);

class FakeBadge final : public LauncherBadge
{
public:
    void setCount(qsizetype count) override { counts += count; }

    QList<qsizetype> counts;
};

/// Writes down what was asked of the windows.
class FakeWindows final : public AppWindows
{
public:
    void showMain(const QByteArray &token) override { calls += u"main "_s + QString::fromLatin1(token); }
    void showPanel(QPoint) override { calls += u"panel"_s; }
    void togglePanel(QPoint position) override { calls += u"toggle %1"_s.arg(position.x()); }

    QStringList calls;
};

class FakeInstance final : public SingleInstance
{
public:
    Role claim(const QList<QUrl> &) override { return Role::primary; }
};

} // namespace

class PingwellAppTest : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<ManualClock> m_clock;
    FakeStatusItem *m_item = nullptr;
    FakeBadge *m_badge = nullptr;
    FakeWindows *m_windows = nullptr;
    AppStore *m_store = nullptr;
    SystemEvents *m_events = nullptr;
    FakeInstance m_instance;
    QList<QUrl> m_openedURLs;
    std::unique_ptr<StoreFixture> m_service;
    std::unique_ptr<PingwellApp> m_app;

    /// The program in demo mode, among fakes that the test holds on to.
    void launch(const LaunchOptions &options, bool hasStatusArea)
    {
        m_clock = std::make_shared<ManualClock>(instantFromMilliseconds(1'700'000'000'000.0));
        const Instant now = m_clock->now();
        launch(options, hasStatusArea, std::make_unique<AppStore>(demoData(now), true, nullptr, now, nullptr, m_clock));
    }

    /// With a service that has sent one ask, and is silent from now on.
    void launchLive()
    {
        m_service = std::make_unique<StoreFixture>();
        m_service->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
        m_service->startWith({.alerts = {askJSON(u"a1"_s, 60)}});
        launch({}, true, std::move(m_service->store));
    }

    void launch(const LaunchOptions &options, bool hasStatusArea, std::unique_ptr<AppStore> store)
    {
        m_app.reset();
        AppParts parts{
            .store = std::move(store),
            .statusItem = std::make_unique<FakeStatusItem>(),
            .badge = std::make_unique<FakeBadge>(),
            .systemEvents = std::make_unique<SystemEvents>(),
            .windows = std::make_unique<FakeWindows>(),
            .singleInstance = &m_instance,
            .openURL =
                [this](const QUrl &url) {
                    m_openedURLs += url;
                    return url.host() == u"auth"_s;
                },
        };
        m_store = parts.store.get();
        m_events = parts.systemEvents.get();
        m_item = static_cast<FakeStatusItem *>(parts.statusItem.get());
        m_item->available = hasStatusArea;
        m_badge = static_cast<FakeBadge *>(parts.badge.get());
        m_windows = static_cast<FakeWindows *>(parts.windows.get());
        m_app = std::make_unique<PingwellApp>(options, std::move(parts));
        m_app->start();
    }

private slots:
    void cleanup()
    {
        m_app.reset();
        m_service.reset();
    }

    void countReachesItemAndBadgeOnce()
    {
        launch({.isDemo = true}, true);
        QVERIFY(m_item->hasIcon);
        m_store->toggleRead(u"a3"_s);
        m_store->answer(u"a1"_s, u"Keep them"_s);
        QCOMPARE(m_item->labels, (QStringList{u"Pingwell, 3 waiting"_s, u"Pingwell, 2 waiting"_s}));
        m_store->startClock();
        m_clock->advance(61s);
        QTRY_COMPARE(m_badge->counts, (QList<qsizetype>{3, 2, 1}));
        m_store->selectWorkspace(u"w2"_s);
        QCOMPARE(m_item->labels.last(), u"Pingwell"_s);
    }

    void clicksAndMenuReachTheWindows()
    {
        launch({.isDemo = true}, true);
        QSignalSpy quits(m_app.get(), &PingwellApp::quitRequested);
        emit m_item->activated(QPoint(7, 8));
        emit m_item->panelRequested();
        emit m_item->windowRequested();
        QCOMPARE(m_windows->calls, (QStringList{u"toggle 7"_s, u"panel"_s, u"main "_s}));
        emit m_item->quitRequested();
        emit m_windows->quitRequested();
        QCOMPARE(quits.size(), 2);
    }

    /// An answer, a change that others may wait for, the account's deletion, and the device of who signs out.
    void quittingWaitsForWhatIsUnderWay()
    {
        const std::tuple<QByteArray, QByteArray, Act> rows[] = {
            {"POST", "/workspaces/w1/alerts/a1/answer", [](AppStore &store) { store.answer(u"a1"_s, u"Deny"_s); }},
            {"PATCH", "/workspaces/w1", [](AppStore &store) { store.renameWorkspace(u"New"_s); }},
            {"DELETE", "/auth/account", [](AppStore &store) { store.deleteAccount(); }},
            {"DELETE", "/devices/d1", [](AppStore &store) { store.signOut(); }}};
        for (const auto &[method, path, act] : rows) {
            const InRow row(path);
            launchLive();
            m_service->preferences->setString(preference_keys::device(*m_service->backend->baseURLOverride), u"d1"_s);
            for (int time = 0; time < 2; ++time)
                m_service->transport->plan(method, path, ScriptedAnswer::failure(409).heldBack());
            const QSignalSpy quits(m_app.get(), &PingwellApp::quitRequested);
            act(*m_store);
            m_service->settle();
            m_app->quit();
            QVERIFY(quits.isEmpty());
            m_service->release(method, path);
            QCOMPARE(quits.size(), 1);
            m_app->quit();
            QCOMPARE(quits.size(), 2);
            cleanup();
        }
    }

    /// Whoever doesn't wait for a quit that waits, and ends that come without one.
    void someEndsAreNotAskedFor()
    {
        launchLive();
        for (int time = 0; time < 2; ++time)
            m_service->transport->plan("POST", "/workspaces/w1/alerts/a1/answer",
                                       ScriptedAnswer::data("{}").heldBack());
        m_store->answer(u"a1"_s, u"Deny"_s);
        QTimer::singleShot(0, m_app.get(), [&] { m_service->transport->release(); });
        m_app->finishWork();
        QVERIFY(!m_store->hasUnfinishedWork());
        m_store->answer(u"a1"_s, u"Deny"_s);
        m_service->settle();
        const QSignalSpy quits(m_app.get(), &PingwellApp::quitRequested);
        m_app->quit();
        QVERIFY(quits.isEmpty());
        m_app->quit();
        QCOMPARE(quits.size(), 1);
        m_app->finishWork();
        QVERIFY2(m_store->hasUnfinishedWork(), "the person has waited long enough");
    }

    void theIconTellsWhenItCantBeReliedOn()
    {
        launchLive();
        m_service->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        m_store->startClock();
        m_store->refresh();
        m_service->settle();
        m_service->clock->advance(59s);
        QCOMPARE(m_item->descriptions, QStringList{QString()});
        m_service->clock->advance(1s);
        QCOMPARE(m_item->descriptions.last(), u"Not up to date. New alerts don't arrive."_s);
        m_service->transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        m_store->refresh();
        m_service->settle();
        QCOMPARE(m_item->descriptions.last(), QString());
        m_store->signOut();
        m_service->settle();
        QCOMPARE(m_item->descriptions.last(), u"Signed out. Open Pingwell to sign in."_s);
    }

    void oldConnectionsAreLeftWhenTheSystemSays()
    {
        launchLive();
        emit m_events->wokeUp();
        QCOMPARE(m_service->transport->dropCount(), 1);
        emit m_events->networkReturned();
        QCOMPARE(m_service->transport->dropCount(), 2);
    }

    void laterStartsBringTheWindowForward()
    {
        launch({}, true);
        emit m_instance.activated("token");
        const QUrl callback(u"pingwell://auth/callback"_s), anything(u"pingwell:anything"_s);
        emit m_instance.opened({callback, anything}, "other");
        emit m_instance.opened({anything}, "page");
        QCOMPARE(m_openedURLs, (QList<QUrl>{callback, anything, anything}));
        QCOMPARE(m_windows->calls, (QStringList{u"main token"_s, u"main other"_s}));
    }

    void opensTheWindowOnlyWhereNothingElseIs()
    {
        const QStringList opened{u"main "_s};
        launch({.isUITest = true, .isDemo = true}, true);
        QCOMPARE(m_windows->calls, opened);
        launch({.isLiveUITest = true}, true);
        QCOMPARE(m_windows->calls, opened);
        launch({}, true);
        QVERIFY(m_windows->calls.isEmpty());

        launch({}, false);
        QVERIFY2(m_windows->calls.isEmpty(), "it may still be found");
        m_item->available = true;
        emit m_item->availabilityChanged(true);
        m_item->available = false;
        emit m_item->availabilityChanged(false);
        QVERIFY2(m_windows->calls.isEmpty(), "a status area that goes away later is no reason to open a window");

        launch({}, false);
        emit m_item->availabilityChanged(false);
        QCOMPARE(m_windows->calls, opened);
        launch({}, false);
        QTRY_COMPARE(m_windows->calls, opened);
    }
};

QTEST_MAIN(PingwellAppTest)
#include "pingwell_app_test.moc"
