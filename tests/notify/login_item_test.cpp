#include "fake_login_item.h"
#include "support/memory_preferences.h"

#include <QTest>

using namespace pingwell;

namespace {

const QString offered = QStringLiteral("pingwell.loginItem.offered");

} // namespace

class LoginItemTest : public QObject
{
    Q_OBJECT

private slots:
    void switching()
    {
        FakeLoginItem item;
        QVERIFY(setLaunchAtLogin(item, true));
        item.problem = QStringLiteral("disk full");
        QVERIFY2(setLaunchAtLogin(item, false), "it is on still");
        item.current = LoginItemStatus::requiresApproval;
        QVERIFY(!setLaunchAtLogin(item, true));
    }

    void isOfferedOnceToAnInstalledCopy()
    {
        FakeLoginItem item;
        MemoryPreferences preferences;
        item.installed = false;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.registrations, 0);
        QVERIFY(!preferences.contains(offered));
        item.installed = true;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.current, LoginItemStatus::enabled);
        item.current = LoginItemStatus::notRegistered;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.registrations, 1);
        QCOMPARE(preferences.boolean(offered), std::optional(true));
    }
};

QTEST_GUILESS_MAIN(LoginItemTest)
#include "login_item_test.moc"
