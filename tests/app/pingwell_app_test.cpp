#include "app/demo_data.h"
#include "app/pingwell_app.h"
#include "support/manual_clock.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class FakeStatusItem final : public StatusItem
{
public:
    explicit FakeStatusItem(bool isThere)
        : available(isThere)
    {
    }
    bool isAvailable() const override { return available; }
    void setContent(const QIcon &icon, const QString &label) override
    {
        hasIcon = !icon.isNull();
        labels += label;
    }

    bool available;
    bool hasIcon = false;
    QStringList labels;
};

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
    FakeInstance m_instance;
    QList<QUrl> m_openedURLs;
    std::unique_ptr<PingwellApp> m_app;

    /// The program in demo mode, among fakes that the test holds on to.
    void launch(const LaunchOptions &options, bool hasStatusArea)
    {
        m_app.reset();
        m_clock = std::make_shared<ManualClock>(instantFromMilliseconds(1'700'000'000'000.0));
        const Instant now = m_clock->now();
        AppParts parts{
            .store = std::make_unique<AppStore>(demoData(now), true, nullptr, now, nullptr, m_clock),
            .statusItem = std::make_unique<FakeStatusItem>(hasStatusArea),
            .badge = std::make_unique<FakeBadge>(),
            .systemEvents = std::make_unique<SystemEvents>(),
            .windows = std::make_unique<FakeWindows>(),
            .singleInstance = &m_instance,
            .openURL = [this](const QUrl &url) { m_openedURLs += url; },
        };
        m_store = parts.store.get();
        m_item = static_cast<FakeStatusItem *>(parts.statusItem.get());
        m_badge = static_cast<FakeBadge *>(parts.badge.get());
        m_windows = static_cast<FakeWindows *>(parts.windows.get());
        m_app = std::make_unique<PingwellApp>(options, std::move(parts));
        m_app->start();
    }

private slots:
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

    void laterStartsBringTheWindowForward()
    {
        launch({}, true);
        emit m_instance.activated("token");
        const QUrl callback(u"pingwell://auth/callback"_s);
        emit m_instance.opened({callback}, "other");
        QCOMPARE(m_openedURLs, QList<QUrl>{callback});
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
