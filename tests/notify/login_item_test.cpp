#include "notify/login_item.h"
#include "support/memory_preferences.h"

#include <QTemporaryFile>
#include <QTest>

#include <unistd.h>

using namespace pingwell;

namespace {

/// What a call writes to standard output.
template<typename Call>
QByteArray outputOf(Call call)
{
    QTemporaryFile captured;
    if (!captured.open())
        return "no file to capture in";
    std::fflush(stdout);
    const int original = ::dup(STDOUT_FILENO);
    ::dup2(captured.handle(), STDOUT_FILENO);
    call();
    std::fflush(stdout);
    ::dup2(original, STDOUT_FILENO);
    ::close(original);
    captured.seek(0);
    return captured.readAll();
}

class FakeLoginItem final : public LoginItem
{
public:
    std::optional<QString> registerProgram() override
    {
        ++registrations;
        if (!problem)
            current = LoginItemStatus::enabled;
        return problem;
    }
    std::optional<QString> unregisterProgram() override
    {
        if (!problem)
            current = LoginItemStatus::notRegistered;
        return problem;
    }
    LoginItemStatus status() const override { return current; }
    bool isProgramInstalled() const override { return installed; }

    LoginItemStatus current = LoginItemStatus::notRegistered;
    std::optional<QString> problem;
    bool installed = true;
    int registrations = 0;
};

const QString offered = QStringLiteral("pingwell.loginItem.offered");

} // namespace

class LoginItemTest : public QObject
{
    Q_OBJECT

private slots:
    void switching_data()
    {
        QTest::addColumn<LoginItemStatus>("before");
        QTest::addColumn<bool>("wanted");
        QTest::addColumn<bool>("fails");
        QTest::addColumn<bool>("isOn");
        QTest::addColumn<QByteArray>("log");
        const QByteArray quiet;
        QTest::newRow("on") << LoginItemStatus::notRegistered << true << false << true << quiet;
        QTest::newRow("off") << LoginItemStatus::enabled << false << false << false << quiet;
        QTest::newRow("can't be switched on") << LoginItemStatus::requiresApproval << true << true << false
                                              << QByteArray("[login item] register failed: disk full\n");
        QTest::newRow("can't be switched off") << LoginItemStatus::enabled << false << true << true
                                               << QByteArray("[login item] unregister failed: disk full\n");
    }

    void switching()
    {
        QFETCH(LoginItemStatus, before);
        QFETCH(bool, wanted);
        QFETCH(bool, fails);
        FakeLoginItem item;
        item.current = before;
        if (fails)
            item.problem = QStringLiteral("disk full");
        bool result = false;
        const QByteArray log = outputOf([&] { result = setLaunchAtLogin(item, wanted); });
        QTEST(result, "isOn");
        QTEST(log, "log");
    }

    void isOfferedOnce()
    {
        FakeLoginItem item;
        MemoryPreferences preferences;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.current, LoginItemStatus::enabled);
        item.current = LoginItemStatus::notRegistered;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.registrations, 1);
        QCOMPARE(preferences.boolean(offered), std::optional(true));
    }

    void isNotOfferedToACopyThatIsNotInstalled()
    {
        FakeLoginItem item;
        item.installed = false;
        MemoryPreferences preferences;
        offerLaunchAtLoginOnce(item, preferences);
        QCOMPARE(item.registrations, 0);
        QVERIFY(!preferences.contains(offered));
    }
};

QTEST_GUILESS_MAIN(LoginItemTest)
#include "login_item_test.moc"
