#include "platform/desktop_appearance.h"
#include "platform/launcher_entry_badge.h"
#include "platform/logind_system_events.h"
#include "platform/ui_test_bridge.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDir>
#include <QGuiApplication>
#include <QPalette>
#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTestEventLoop>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// Another participant of the bus: the desktop.
QDBusConnection desktop()
{
    static const QDBusConnection connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
    return connection;
}

} // namespace

/// A settings portal with what a desktop would have set.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    QHash<QString, QVariant> settings;

public slots:
    QDBusVariant Read(const QString &group, const QString &key, const QDBusMessage &message)
    {
        const QVariant value = settings.value(group + u'/' + key);
        if (value.isValid())
            return QDBusVariant(QVariant::fromValue(QDBusVariant(value)));
        message.setDelayedReply(true);
        desktop().send(message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"none"_s));
        return {};
    }

signals:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);
};

/// Hears what docks hear.
class FakeDock : public QObject
{
    Q_OBJECT

public:
    QList<QVariantMap> updates;

public slots:
    void note(const QString &application, const QVariantMap &properties)
    {
        if (application == u"application://com.pingwell.mac.desktop"_s)
            updates << properties;
    }
};

class DesktopServicesTest : public QObject
{
    Q_OBJECT

public:
    /// The bus of this test stands in for the system's; the address is read with the first connection.
    static void initMain() { qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS")); }

private slots:
    void init();
    void cleanup();
    void followsThePortal_data();
    void followsThePortal();
    void followsTheDesktopWhileItRuns();
    void environmentDecidesTheColours();
    void withoutAPortalThePaletteDecides();
    void followsPlasmasAnimations();
    void badgeIsAnnouncedToEveryDock();
    void wakingUpIsToldOnce();
    void networkReturnsOnlyAfterItWasGone_data();
    void networkReturnsOnlyAfterItWasGone();
    void bridgeAnswersWithTheSnapshot();

private:
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<FakePortal> m_portal;
};

void DesktopServicesTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", m_home->path().toUtf8());
    qunsetenv("PINGWELL_APPEARANCE");
    m_portal = std::make_unique<FakePortal>();
    QVERIFY(desktop().registerObject(u"/org/freedesktop/portal/desktop"_s, m_portal.get(),
                                     QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    QVERIFY(desktop().registerService(u"org.freedesktop.portal.Desktop"_s));
}

void DesktopServicesTest::cleanup()
{
    desktop().unregisterService(u"org.freedesktop.portal.Desktop"_s);
    desktop().unregisterObject(u"/org/freedesktop/portal/desktop"_s);
}

void DesktopServicesTest::followsThePortal_data()
{
    QTest::addColumn<QVariant>("colourScheme");
    QTest::addColumn<QVariant>("animations");
    QTest::addColumn<bool>("dark");
    QTest::addColumn<bool>("motionReduced");
    QTest::newRow("dark, calm") << QVariant(1U) << QVariant(false) << true << true;
    QTest::newRow("dark") << QVariant(1U) << QVariant(true) << true << false;
    QTest::newRow("only motion") << QVariant() << QVariant(false) << false << true;
    QTest::newRow("no preference, calm") << QVariant(0U) << QVariant(false) << false << true;
    QTest::newRow("light, calm") << QVariant(2U) << QVariant(false) << false << true;
    QTest::newRow("unknown scheme, calm") << QVariant(7U) << QVariant(false) << false << true;
}

void DesktopServicesTest::followsThePortal()
{
    QFETCH(QVariant, colourScheme);
    QFETCH(QVariant, animations);
    m_portal->settings[u"org.freedesktop.appearance/color-scheme"_s] = colourScheme;
    m_portal->settings[u"org.gnome.desktop.interface/enable-animations"_s] = animations;
    const DesktopAppearance appearance;
    // The answers come in the order of the questions, the one on motion last.
    QFETCH(bool, motionReduced);
    QTRY_COMPARE(appearance.isMotionReduced(), motionReduced);
    QFETCH(bool, dark);
    QTRY_COMPARE(appearance.isDark(), dark);
}

void DesktopServicesTest::followsTheDesktopWhileItRuns()
{
    const DesktopAppearance appearance;
    QSignalSpy changed(&appearance, &Appearance::changed);
    const auto set = [this](const QString &group, const QString &key, const QVariant &value) {
        emit m_portal->SettingChanged(group, key, QDBusVariant(value));
    };
    set(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U);
    QTRY_VERIFY(appearance.isDark());
    set(u"org.freedesktop.appearance"_s, u"contrast"_s, 1U);
    set(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U);
    set(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    QTRY_VERIFY(appearance.isMotionReduced());
    QVERIFY(appearance.isDark());
    set(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2U);
    QTRY_VERIFY(!appearance.isDark());
    QCOMPARE(changed.size(), 3);
}

void DesktopServicesTest::environmentDecidesTheColours()
{
    m_portal->settings[u"org.freedesktop.appearance/color-scheme"_s] = 2U;
    m_portal->settings[u"org.gnome.desktop.interface/enable-animations"_s] = false;
    qputenv("PINGWELL_APPEARANCE", "dark");
    const DesktopAppearance appearance;
    QVERIFY(appearance.isDark());
    QTRY_VERIFY(appearance.isMotionReduced());
    QVERIFY(appearance.isDark());
}

void DesktopServicesTest::withoutAPortalThePaletteDecides()
{
    cleanup();
    const QPalette before = QGuiApplication::palette();
    const DesktopAppearance appearance;
    QVERIFY(!appearance.isDark());
    QGuiApplication::setPalette(QPalette(Qt::black));
    QTRY_VERIFY(appearance.isDark());
    QGuiApplication::setPalette(before);
    QTRY_VERIFY(!appearance.isDark());
}

void DesktopServicesTest::followsPlasmasAnimations()
{
    const auto write = [this](const QByteArray &text) {
        // Replaced as a whole, as Plasma does.
        QSaveFile file(m_home->filePath(u"kdeglobals"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit());
    };
    write("[General]\nAnimationDurationFactor=0\n[KDE]\nLookAndFeelPackage=x\nAnimationDurationFactor=0.5\n");
    const DesktopAppearance appearance;
    QVERIFY(!appearance.isMotionReduced());
    write("[KDE]\nAnimationDurationFactor=0\n[Other]\nAnimationDurationFactor=1\n");
    QTRY_VERIFY(appearance.isMotionReduced());
    write("[KDE]\nAnimationDurationFactor=fast\n");
    QTRY_VERIFY(!appearance.isMotionReduced());
}

void DesktopServicesTest::badgeIsAnnouncedToEveryDock()
{
    FakeDock dock;
    QDBusConnection bus = desktop();
    bus.connect({}, {}, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, &dock, SLOT(note(QString, QVariantMap)));
    const auto shown = [](qint64 count) {
        return QVariantMap{{u"count"_s, QVariant::fromValue(count)}, {u"count-visible"_s, count > 0}};
    };
    auto badge = std::make_unique<LauncherEntryBadge>();
    badge->setCount(0);
    badge->setCount(3);
    badge->setCount(3);
    badge->setCount(-1);
    badge->setCount(2);
    QTRY_COMPARE(dock.updates.size(), 3);
    QCOMPARE(dock.updates, (QList<QVariantMap>{shown(3), shown(0), shown(2)}));
    QCOMPARE(dock.updates.first().value(u"count"_s).metaType(), QMetaType::fromType<qint64>());

    // A dock that starts now is told again.
    QVERIFY(bus.registerService(u"com.canonical.Unity"_s));
    QTRY_COMPARE(dock.updates.size(), 4);
    QCOMPARE(dock.updates.last(), shown(2));
    bus.unregisterService(u"com.canonical.Unity"_s);

    badge.reset();
    QTRY_COMPARE(dock.updates.size(), 5);
    QCOMPARE(dock.updates.last(), shown(0));
}

void DesktopServicesTest::wakingUpIsToldOnce()
{
    QVERIFY(desktop().registerService(u"org.freedesktop.login1"_s));
    const LogindSystemEvents events;
    QSignalSpy wokeUp(&events, &SystemEvents::wokeUp);
    const auto send = [](const QString &interface, const QString &name, const QVariantList &arguments) {
        QDBusMessage signal = QDBusMessage::createSignal(u"/org/freedesktop/login1"_s, interface, name);
        signal.setArguments(arguments);
        desktop().send(signal);
    };
    const auto prepareForSleep = [&send](bool starting) {
        send(u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, {starting});
    };
    // Signals arrive in order: this one comes after all that were under way before it.
    QTestEventLoop last;
    QDBusConnection::systemBus().connect({}, {}, u"test.Last"_s, u"Last"_s, &last, SLOT(exitLoop()));
    // It listens a little later: the computer wakes up until it is heard.
    QTRY_VERIFY((prepareForSleep(false), !wokeUp.isEmpty()));

    send(u"test.Last"_s, u"Last"_s, {});
    last.enterLoop(5);
    wokeUp.clear();
    prepareForSleep(true);
    prepareForSleep(false);
    send(u"test.Last"_s, u"Last"_s, {});
    last.enterLoop(5);
    QVERIFY(!last.timeout());
    QCOMPARE(wokeUp.size(), 1);
    desktop().unregisterService(u"org.freedesktop.login1"_s);
}

void DesktopServicesTest::networkReturnsOnlyAfterItWasGone_data()
{
    using enum QNetworkInformation::Reachability;
    QTest::addColumn<QList<QNetworkInformation::Reachability>>("states");
    QTest::addColumn<int>("returns");
    QTest::newRow("online from the start") << QList{Online} << 0;
    QTest::newRow("known at last") << QList{Unknown, Online} << 0;
    QTest::newRow("came up") << QList{Disconnected, Online} << 1;
    QTest::newRow("came up in steps") << QList{Online, Disconnected, Local, Site, Online} << 1;
    QTest::newRow("behind a portal for a while") << QList{Online, Site, Online} << 0;
    QTest::newRow("gone twice") << QList{Disconnected, Online, Disconnected, Disconnected, Online} << 2;
}

void DesktopServicesTest::networkReturnsOnlyAfterItWasGone()
{
    QFETCH(QList<QNetworkInformation::Reachability>, states);
    LogindSystemEvents events;
    QSignalSpy returned(&events, &SystemEvents::networkReturned);
    for (const auto state : states)
        events.noteReachability(state);
    QTEST(int(returned.size()), "returns");
}

void DesktopServicesTest::bridgeAnswersWithTheSnapshot()
{
    UITestBridge bridge([] { return u"[{\"id\":\"é\"}]"_s; });
    QVERIFY(bridge.serve());
    QVERIFY2(!UITestBridge([] { return QString(); }).serve(), "the name has one owner");
    const QDBusMessage call = QDBusMessage::createMethodCall(u"com.pingwell.mac.uitest"_s, u"/com/pingwell/uitest"_s,
                                                             u"com.pingwell.UITest1"_s, u"Snapshot"_s);
    const QDBusPendingReply<QString> reply = desktop().asyncCall(call);
    QTRY_VERIFY(reply.isFinished());
    QCOMPARE(reply.value(), u"[{\"id\":\"é\"}]"_s);
}

QTEST_MAIN(DesktopServicesTest)
#include "desktop_services_test.moc"
