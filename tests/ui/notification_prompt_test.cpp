#include "desktop/preference_keys.h"
#include "screen_fixture.h"
#include "support/fake_notification_center.h"
#include "ui/settings/notification_access.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString enable = u"notificationPrompt.enable"_s;
const QString notNow = u"notificationPrompt.notNow"_s;
const QString blocked = u"notificationPrompt.blocked"_s;

/// The main window of a session that has just begun, on a desktop with that permission.
struct PromptScreen
{
    explicit PromptScreen(AuthorizationStatus status, bool hasSettings = true)
        : access(center)
    {
        center->status = status;
        center->hasSettings = hasSettings;
        live.startWith({});
        screen.emplace(u"RootView"_s, *live.store, QVariantMap{{u"notifications"_s, QVariant::fromValue(&access)}});
    }

    [[nodiscard]] bool wasDismissed() const
    {
        return live.preferences->boolean(preference_keys::promptDismissed).value_or(false);
    }

    std::shared_ptr<FakeNotificationCenter> center = std::make_shared<FakeNotificationCenter>();
    NotificationAccess access;
    StoreFixture live;
    std::optional<Screen> screen;
};

} // namespace

class NotificationPromptTest : public QObject
{
    Q_OBJECT

private slots:
    void saysWhatCanBeDone()
    {
        using enum AuthorizationStatus;
        const QString ask = u"Enable notifications"_s;
        const std::tuple<AuthorizationStatus, bool, bool, QString> rows[] = {
            {authorized, true, false, {}},    {provisional, true, false, {}},
            {notDetermined, true, true, ask}, {other, true, true, ask},
            {denied, false, true, {}},        {denied, true, true, u"Open System Settings…"_s}};
        for (const auto &[status, hasSettings, opens, button] : rows) {
            const PromptScreen m(status, hasSettings);
            QCOMPARE(m.screen->shows(notNow), opens);
            QCOMPARE(m.screen->name(enable), button);
            QCOMPARE(m.screen->shows(blocked), status == denied);
        }
    }

    void buttonAsksAndSaysThatTheyAreOn()
    {
        PromptScreen m(AuthorizationStatus::notDetermined);
        m.screen->click(enable);
        QCOMPARE(m.center->requests, 1);
        QVERIFY(!m.screen->shows(notNow) && m.wasDismissed());
        QCOMPARE(m.screen->name(u"toast"_s), u"Notifications are on."_s);
    }

    void refusedRequestLeavesTheWayToTheSettings()
    {
        PromptScreen m(AuthorizationStatus::notDetermined);
        m.center->statusAfterRequest = AuthorizationStatus::denied;
        m.center->requestFails = true;
        m.screen->click(enable);
        QVERIFY(m.screen->shows(blocked));
        m.screen->click(enable);
        QCOMPARE(m.center->settingsOpened, 1);
        QCOMPARE(m.center->requests, 1);
        QVERIFY(!m.wasDismissed());
    }

    void comingBackFromTheSettingsIsNoticed()
    {
        PromptScreen m(AuthorizationStatus::denied);
        QWindow settings;
        settings.show();
        settings.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&settings));
        m.center->status = AuthorizationStatus::authorized;
        m.screen->view().requestActivate();
        QTRY_VERIFY(!m.screen->shows(notNow));
        QVERIFY(m.wasDismissed());
        QCOMPARE(m.screen->name(u"toast"_s), u"Notifications are on."_s);
    }

    void declinedIsForThisAccount()
    {
        for (const bool byKey : {false, true}) {
            PromptScreen m(AuthorizationStatus::denied);
            if (byKey)
                m.screen->press(Qt::Key_Escape);
            else
                m.screen->click(notNow);
            QVERIFY(m.wasDismissed());
            m.access.considerPrompt(m.live.store.get());
            QVERIFY(!m.screen->shows(notNow));
        }
    }

    void endOfTheSessionDeclinesNothing()
    {
        PromptScreen m(AuthorizationStatus::denied);
        m.live.store->endSession(std::nullopt);
        QVERIFY(m.screen->shows(u"signin"_s) && !m.screen->shows(notNow));
        QVERIFY(!m.wasDismissed());
    }
};

QTEST_MAIN(NotificationPromptTest)
#include "notification_prompt_test.moc"
