#include "platform/status_notifier_item.h"

#include <QApplication>
#include <QCursor>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <atomic>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The desktop's watcher and host of status items, on a thread of its own as if it were another process: Qt asks it
/// with calls that block.
class FakeStatusArea : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    FakeStatusArea()
    {
        moveToThread(&m_thread);
        m_thread.start();
    }
    ~FakeStatusArea() override
    {
        onItsThread([this, home = QThread::currentThread()] {
            m_bus.unregisterService(u"org.kde.StatusNotifierWatcher"_s);
            m_bus.unregisterObject(u"/StatusNotifierWatcher"_s);
            moveToThread(home);
        });
        m_thread.quit();
        m_thread.wait();
    }

    void start()
    {
        onItsThread([this] { serve(); });
    }
    void setHost(bool present)
    {
        m_hasHost = present;
        m_bus.send(QDBusMessage::createSignal(u"/StatusNotifierWatcher"_s, u"org.kde.StatusNotifierWatcher"_s,
                                              present ? u"StatusNotifierHostRegistered"_s
                                                      : u"StatusNotifierHostUnregistered"_s));
    }
    bool hasHost() const { return m_hasHost; }
    int items() const { return m_items; }
    QDBusConnection bus() const { return m_bus; }

    /// Calls the registered item; the reply comes while the event loop runs.
    QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments) const
    {
        QDBusMessage message = QDBusMessage::createMethodCall(m_item, path, interface, method);
        message.setArguments(arguments);
        const QDBusPendingReply<> reply = m_bus.asyncCall(message);
        return QTest::qWaitFor([&] { return reply.isFinished(); }) ? reply.reply() : QDBusMessage();
    }

public slots:
    void RegisterStatusNotifierItem(const QString &service)
    {
        m_item = service;
        ++m_items;
    }

private:
    template<typename Action>
    void onItsThread(Action action)
    {
        QMetaObject::invokeMethod(this, action, Qt::BlockingQueuedConnection);
    }

    void serve()
    {
        m_bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                                 QDBusConnection::ExportAllProperties);
        m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
    }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"statusArea"_s);
    QThread m_thread;
    QString m_item;
    std::atomic<bool> m_hasHost = false;
    std::atomic<int> m_items = 0;
};

namespace {

QIcon icon()
{
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::red);
    return pixmap;
}

/// The ids of a menu's entries by their text, from com.canonical.dbusmenu's GetLayout: (u(ia{sv}av)).
QHash<QString, int> entriesOf(const QDBusMessage &layout)
{
    QHash<QString, int> entries;
    const auto argument = layout.arguments().value(1).value<QDBusArgument>();
    int id = 0;
    QVariantMap properties;
    QVariantList children;
    argument.beginStructure();
    argument >> id >> properties >> children;
    argument.endStructure();
    for (const QVariant &child : std::as_const(children)) {
        const auto entry = child.value<QDBusArgument>();
        QVariantList none;
        entry.beginStructure();
        entry >> id >> properties >> none;
        entry.endStructure();
        if (!properties.value(u"label"_s).toString().isEmpty())
            entries.insert(properties.value(u"label"_s).toString(), id);
    }
    return entries;
}

} // namespace

class StatusNotifierItemTest : public QObject
{
    Q_OBJECT

private slots:
    void appearsWithTheStatusArea();
    void tellsClicks();
    void menuEntriesAskForWhatTheySay_data();
    void menuEntriesAskForWhatTheySay();
    void comesBackWhenTheStatusAreaRestarts();

private:
    std::unique_ptr<FakeStatusArea> m_area = std::make_unique<FakeStatusArea>();
    StatusNotifierItem m_item;
};

void StatusNotifierItemTest::appearsWithTheStatusArea()
{
    QSignalSpy changed(&m_item, &StatusItem::availabilityChanged);
    m_item.setContent(icon(), u"Pingwell, 1 waiting"_s);
    QVERIFY(!m_item.isAvailable());
    m_area->start();
    // A watcher alone shows nothing.
    QVERIFY(!changed.wait(100));
    m_area->setHost(true);
    QTRY_VERIFY(m_item.isAvailable());
    QCOMPARE(changed, QList<QVariantList>{{true}});
    QTRY_COMPARE(m_area->items(), 1);

    const auto tooltip = [this] {
        const QDBusMessage reply = m_area->call(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s,
                                                u"Get"_s, {u"org.kde.StatusNotifierItem"_s, u"ToolTip"_s});
        const auto argument = reply.arguments().value(0).value<QDBusVariant>().variant().value<QDBusArgument>();
        QString iconName;
        QString title;
        QString description;
        argument.beginStructure();
        argument >> iconName;
        argument.beginArray();
        argument.endArray();
        argument >> title >> description;
        argument.endStructure();
        return title;
    };
    QCOMPARE(tooltip(), u"Pingwell, 1 waiting"_s);
    m_item.setContent(icon(), u"Pingwell"_s);
    QCOMPARE(tooltip(), u"Pingwell"_s);
}

void StatusNotifierItemTest::tellsClicks()
{
    QSignalSpy activated(&m_item, &StatusItem::activated);
    QCursor::setPos(40, 30);
    for (const QString &method : {u"Activate"_s, u"SecondaryActivate"_s})
        m_area->call(u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, method, {40, 30});
    QTRY_COMPARE(activated, (QList<QVariantList>{{QPoint(40, 30)}, {QPoint(40, 30)}}));
}

void StatusNotifierItemTest::menuEntriesAskForWhatTheySay_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("panel") << u"Open panel"_s << QByteArray(SIGNAL(panelRequested()));
    QTest::newRow("window") << u"Open Pingwell"_s << QByteArray(SIGNAL(windowRequested()));
    QTest::newRow("quit") << u"Quit Pingwell"_s << QByteArray(SIGNAL(quitRequested()));
}

void StatusNotifierItemTest::menuEntriesAskForWhatTheySay()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, request);
    QSignalSpy requested(&m_item, request.constData());
    const QHash<QString, int> entries =
        entriesOf(m_area->call(u"/MenuBar"_s, u"com.canonical.dbusmenu"_s, u"GetLayout"_s, {0, -1, QStringList()}));
    QCOMPARE(entries.size(), 3);
    QVERIFY(entries.contains(text));
    m_area->call(u"/MenuBar"_s, u"com.canonical.dbusmenu"_s, u"Event"_s,
                 {entries.value(text), u"clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0U});
    QTRY_COMPARE(requested.size(), 1);
}

void StatusNotifierItemTest::comesBackWhenTheStatusAreaRestarts()
{
    QSignalSpy changed(&m_item, &StatusItem::availabilityChanged);
    m_area.reset();
    QTRY_VERIFY(!m_item.isAvailable());
    m_area = std::make_unique<FakeStatusArea>();
    m_area->setHost(true);
    m_area->start();
    QTRY_VERIFY(m_item.isAvailable());
    QTRY_COMPARE(m_area->items(), 1);
    m_area->setHost(false);
    QTRY_VERIFY(!m_item.isAvailable());
    QCOMPARE(changed, (QList<QVariantList>{{false}, {true}, {false}}));
}

QTEST_MAIN(StatusNotifierItemTest)
#include "status_notifier_item_test.moc"
