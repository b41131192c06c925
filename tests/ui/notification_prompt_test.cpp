#include "../notify/fake_notification_center.h"
#include "screen_fixture.h"
#include "store/preference_keys.h"
#include "store_fixture.h"
#include "ui/notification_access.h"

#include <QTest>

using namespace pingwell;

namespace {

const QString enable = QStringLiteral("notificationPrompt.enable");
const QString notNow = QStringLiteral("notificationPrompt.notNow");
const QString blocked = QStringLiteral("notificationPrompt.blocked");

} // namespace

class NotificationPromptTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;
    std::shared_ptr<FakeNotificationCenter> m_center;
    std::unique_ptr<NotificationAccess> m_access;
    std::unique_ptr<Screen> m_screen;

    Screen &show()
    {
        m->startWith(DashboardJSON());
        m_screen = std::make_unique<Screen>(
            QStringLiteral("RootView"), *m->store,
            QVariantMap{{QStringLiteral("notifications"), QVariant::fromValue(m_access.get())}});
        m_screen->settle();
        return *m_screen;
    }

    bool wasDismissed() const { return m->preferences->boolean(preference_keys::promptDismissed).value_or(false); }

private slots:
    void init()
    {
        m = std::make_unique<StoreFixture>();
        m_center = std::make_shared<FakeNotificationCenter>();
        m_access = std::make_unique<NotificationAccess>(m_center);
    }

    void cleanup()
    {
        m_screen.reset();
        m_access.reset();
        m.reset();
    }

    void saysWhatCanBeDone_data()
    {
        QTest::addColumn<AuthorizationStatus>("status");
        QTest::addColumn<bool>("hasSettings");
        QTest::addColumn<bool>("opens");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("warns");
        const QString settings = QStringLiteral("Open System Settings…");
        const QString ask = QStringLiteral("Enable notifications");
        QTest::newRow("on") << AuthorizationStatus::authorized << true << false << QString() << false;
        QTest::newRow("on for a trial") << AuthorizationStatus::provisional << true << false << QString() << false;
        QTest::newRow("not asked yet") << AuthorizationStatus::notDetermined << true << true << ask << false;
        QTest::newRow("nobody knows") << AuthorizationStatus::other << true << true << ask << false;
        QTest::newRow("off") << AuthorizationStatus::denied << true << true << settings << true;
        QTest::newRow("off, no page") << AuthorizationStatus::denied << false << true << QString() << true;
    }

    void saysWhatCanBeDone()
    {
        QFETCH(AuthorizationStatus, status);
        QFETCH(bool, hasSettings);
        QFETCH(bool, opens);
        QFETCH(QString, button);
        QFETCH(bool, warns);
        m_center->status = status;
        m_center->hasSettings = hasSettings;
        Screen &screen = show();
        QCOMPARE(screen.shows(notNow), opens);
        QCOMPARE(screen.shows(enable) ? screen.name(enable) : QString(), button);
        QCOMPARE(screen.shows(blocked), warns);
    }

    void buttonAsksAndSaysThatTheyAreOn()
    {
        m_center->status = AuthorizationStatus::notDetermined;
        Screen &screen = show();
        screen.click(enable);
        QCOMPARE(m_center->requests, 1);
        QVERIFY(!screen.shows(notNow));
        QVERIFY(wasDismissed());
        QCOMPARE(screen.name(QStringLiteral("toast")), QStringLiteral("Notifications are on."));
        QVERIFY(!screen.store().toast()->isError);
    }

    void refusedRequestLeavesTheWayToTheSettings()
    {
        m_center->status = AuthorizationStatus::notDetermined;
        m_center->statusAfterRequest = AuthorizationStatus::denied;
        m_center->requestFails = true;
        Screen &screen = show();
        screen.click(enable);
        QVERIFY(screen.shows(blocked));
        screen.click(enable);
        QCOMPARE(m_center->settingsOpened, 1);
        QCOMPARE(m_center->requests, 1);
        QVERIFY(!wasDismissed());
    }

    void comingBackFromTheSettingsIsNoticed()
    {
        m_center->status = AuthorizationStatus::denied;
        Screen &screen = show();
        QVERIFY(screen.shows(blocked));
        QWindow settings;
        settings.show();
        settings.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&settings));
        m_center->status = AuthorizationStatus::authorized;
        screen.view().requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&screen.view()));
        QTRY_VERIFY(!screen.shows(notNow));
        QVERIFY(wasDismissed());
        QCOMPARE(screen.name(QStringLiteral("toast")), QStringLiteral("Notifications are on."));
    }

    void declinedIsForThisAccount()
    {
        m_center->status = AuthorizationStatus::denied;
        Screen &screen = show();
        screen.click(notNow);
        QVERIFY(!screen.shows(notNow));
        QVERIFY(wasDismissed());
        m_access->considerPrompt(m->store.get());
        screen.settle();
        QVERIFY(!screen.shows(notNow));
    }

    void escapeDeclines()
    {
        m_center->status = AuthorizationStatus::denied;
        Screen &screen = show();
        screen.press(Qt::Key_Escape);
        QVERIFY(!screen.shows(notNow));
        QVERIFY(wasDismissed());
    }

    void endOfTheSessionDeclinesNothing()
    {
        m_center->status = AuthorizationStatus::denied;
        Screen &screen = show();
        QVERIFY(screen.shows(notNow));
        m->store->endSession(std::nullopt);
        screen.settle();
        QVERIFY(screen.shows(QStringLiteral("signin")));
        QVERIFY(!screen.shows(notNow));
        QVERIFY(!wasDismissed());
    }
};

QTEST_MAIN(NotificationPromptTest)
#include "notification_prompt_test.moc"
