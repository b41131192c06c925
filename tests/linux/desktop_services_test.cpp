#include "linux/session/desktop_appearance.h"
#include "linux/session/logind_system_events.h"
#include "linux/status_area/launcher_entry_badge.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
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
    // NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): moc names them in its own way.
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

private:
    std::unique_ptr<FakePortal> m_portal;

private slots:
    void init()
    {
        qputenv("XDG_CONFIG_HOME", "/nonexistent");
        qunsetenv("PINGWELL_APPEARANCE");
        m_portal = std::make_unique<FakePortal>();
        QVERIFY(desktop().registerObject(u"/org/freedesktop/portal/desktop"_s, m_portal.get(),
                                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        QVERIFY(desktop().registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    void cleanup()
    {
        desktop().unregisterService(u"org.freedesktop.portal.Desktop"_s);
        desktop().unregisterObject(u"/org/freedesktop/portal/desktop"_s);
    }

    void startsAsTheDesktopIsSet()
    {
        m_portal->settings[u"org.gnome.desktop.interface/enable-animations"_s] = false;
        for (const uint scheme : {0U, 1U, 2U, 7U}) {
            m_portal->settings[u"org.freedesktop.appearance/color-scheme"_s] = scheme;
            const DesktopAppearance appearance;
            // The answers come in the order of the questions, the one on motion last.
            QTRY_VERIFY(appearance.isMotionReduced());
            QCOMPARE(appearance.isDark(), scheme == 1);
        }
        qputenv("PINGWELL_APPEARANCE", "dark");
        const DesktopAppearance forced;
        QTRY_VERIFY(forced.isMotionReduced());
        QVERIFY(forced.isDark());
    }

    void followsTheDesktopWhileItRuns()
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
        set(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2U);
        QTRY_VERIFY(!appearance.isDark());
        QCOMPARE(changed.size(), 3);
    }

    void followsPlasmasAnimations()
    {
        const QTemporaryDir home;
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
        const auto write = [&home](const QByteArray &content) {
            QSaveFile file(home.filePath(u"kdeglobals"_s));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit());
        };
        write("[General]\nAnimationDurationFactor=1\n[KDE]\nAnimationDurationFactor[$i]=0\n");
        const DesktopAppearance appearance;
        QVERIFY(appearance.isMotionReduced());
        // Plasma replaces its file each time.
        for (const bool isReduced : {false, true}) {
            write(isReduced ? "[KDE]\nAnimationDurationFactor=0\n" : "[KDE]\nAnimationDurationFactor=0.5\n");
            QTRY_COMPARE(appearance.isMotionReduced(), isReduced);
        }
    }

    void badgeIsAnnouncedToEveryDock()
    {
        FakeDock dock;
        QDBusConnection bus = desktop();
        bus.connect({}, {}, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, &dock,
                    SLOT(note(QString, QVariantMap)));
        const auto shown = [](qint64 count) {
            return QVariantMap{{u"count"_s, QVariant::fromValue(count)}, {u"count-visible"_s, count > 0}};
        };
        auto badge = std::make_unique<LauncherEntryBadge>();
        for (const int count : {0, 3, 3, -1, 2})
            badge->setCount(count);
        QTRY_COMPARE(dock.updates, (QList<QVariantMap>{shown(3), shown(0), shown(2)}));
        QCOMPARE(dock.updates.first().value(u"count"_s).metaType(), QMetaType::fromType<qint64>());

        // A dock that starts now is told again.
        QVERIFY(bus.registerService(u"com.canonical.Unity"_s));
        QTRY_COMPARE(dock.updates.size(), 4);
        badge.reset();
        QTRY_COMPARE(dock.updates.sliced(3), (QList<QVariantMap>{shown(2), shown(0)}));
    }

    void wakingUpIsToldOnce()
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

    void networkReturnsOnlyAfterItWasGone()
    {
        using enum QNetworkInformation::Reachability;
        LogindSystemEvents events;
        QSignalSpy returned(&events, &SystemEvents::networkReturned);
        // Known at last; then behind a portal for a while.
        for (const auto state : {Unknown, Online, Site, Online})
            events.noteReachability(state);
        QCOMPARE(returned.size(), 0);
        for (const auto state : {Disconnected, Local, Site, Online, Disconnected, Disconnected, Online})
            events.noteReachability(state);
        QCOMPARE(returned.size(), 2);
    }
};

QTEST_MAIN(DesktopServicesTest)
#include "desktop_services_test.moc"
