#include "fake_notification_center.h"
#include "notify/notification_permission.h"

#include <QTest>

using namespace pingwell;

class NotificationPermissionTest : public QObject
{
    Q_OBJECT

private slots:
    void mapping_data()
    {
        QTest::addColumn<AuthorizationStatus>("status");
        QTest::addColumn<NotificationPermission>("permission");
        QTest::newRow("not determined") << AuthorizationStatus::notDetermined << NotificationPermission::notAsked;
        QTest::newRow("denied") << AuthorizationStatus::denied << NotificationPermission::denied;
        QTest::newRow("authorized") << AuthorizationStatus::authorized << NotificationPermission::allowed;
        QTest::newRow("provisional") << AuthorizationStatus::provisional << NotificationPermission::allowed;
        QTest::newRow("ephemeral") << AuthorizationStatus::ephemeral << NotificationPermission::allowed;
        QTest::newRow("other") << AuthorizationStatus::other << NotificationPermission::unknown;
    }

    void mapping()
    {
        QFETCH(AuthorizationStatus, status);
        const auto center = std::make_shared<FakeNotificationCenter>();
        center->status = status;
        QTEST(QCoro::waitFor(currentPermission(center)), "permission");
        QCOMPARE(center->requests, 0);
    }

    void requestTellsWhatHoldsAfterwards_data()
    {
        QTest::addColumn<AuthorizationStatus>("after");
        QTest::addColumn<bool>("fails");
        QTest::addColumn<NotificationPermission>("permission");
        QTest::newRow("granted") << AuthorizationStatus::authorized << false << NotificationPermission::allowed;
        QTest::newRow("refused") << AuthorizationStatus::denied << false << NotificationPermission::denied;
        QTest::newRow("failed") << AuthorizationStatus::notDetermined << true << NotificationPermission::notAsked;
        QTest::newRow("failed, granted elsewhere")
            << AuthorizationStatus::authorized << true << NotificationPermission::allowed;
    }

    void requestTellsWhatHoldsAfterwards()
    {
        QFETCH(AuthorizationStatus, after);
        QFETCH(bool, fails);
        const auto center = std::make_shared<FakeNotificationCenter>();
        center->status = AuthorizationStatus::notDetermined;
        center->statusAfterRequest = after;
        center->requestFails = fails;
        QTEST(QCoro::waitFor(requestPermission(center)), "permission");
        QCOMPARE(center->requests, 1);
    }

    void opensOnlySettingsThatAreThere()
    {
        FakeNotificationCenter center;
        openNotificationSettings(center);
        QCOMPARE(center.settingsOpened, 1);
        center.hasSettings = false;
        openNotificationSettings(center);
        QCOMPARE(center.settingsOpened, 1);
    }
};

QTEST_GUILESS_MAIN(NotificationPermissionTest)
#include "notification_permission_test.moc"
