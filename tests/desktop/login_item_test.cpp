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
        const auto item = std::make_shared<FakeLoginItem>();
        MemoryPreferences preferences;
        item->installed = false;
        offerLaunchAtLoginOnce(item, preferences);
        QVERIFY(item->registrations == 0 && preferences.keys().isEmpty());
        item->installed = true;
        preferences.isSlow = true;
        offerLaunchAtLoginOnce(item, preferences);
        QVERIFY2(item->registrations == 0, "a kill would let it be offered again");
        preferences.isSlow = false;
        preferences.write();
        QCOMPARE(item->current, LoginItemStatus::enabled);
        item->current = LoginItemStatus::notRegistered;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item->registrations, 1);
        QVERIFY(preferences.boolean(QStringLiteral("pingwell.loginItem.offered")).value_or(false));
    }
};

QTEST_GUILESS_MAIN(LoginItemTest)
#include "login_item_test.moc"
