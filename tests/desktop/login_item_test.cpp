#include "support/fake_login_item.h"
#include "support/memory_preferences.h"

#include <QTest>

using namespace pingwell;

class LoginItemTest : public QObject
{
    Q_OBJECT

private slots:
    void isOfferedOnceToAnInstalledCopy()
    {
        FakeLoginItem item;
        MemoryPreferences preferences;
        item.installed = false;
        offerLaunchAtLoginOnce(item, preferences);
        QVERIFY(item.registrations == 0 && preferences.keys().isEmpty());
        item.installed = true;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.current, LoginItemStatus::enabled);
        item.current = LoginItemStatus::notRegistered;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.registrations, 1);
        QVERIFY(preferences.boolean(QStringLiteral("pingwell.loginItem.offered")).value_or(false));
    }
};

QTEST_GUILESS_MAIN(LoginItemTest)
#include "login_item_test.moc"
