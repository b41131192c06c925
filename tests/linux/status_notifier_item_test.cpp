#include "linux/status_area/status_notifier_item.h"

#include <QApplication>
#include <QCursor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
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
        onItsThread([this] {
            m_bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                                 QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                                     QDBusConnection::ExportAllProperties);
            m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
        });
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

    /// Clicks the registered item.
    void click(const QString &method) const
    {
        QDBusMessage message =
            QDBusMessage::createMethodCall(m_item, u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, method);
        message.setArguments({40, 30});
        m_bus.asyncCall(message);
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

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"statusArea"_s);
    QThread m_thread;
    QString m_item;
    std::atomic<bool> m_hasHost = false;
    std::atomic<int> m_items = 0;
};

class StatusNotifierItemTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<FakeStatusArea> m_area = std::make_unique<FakeStatusArea>();
    StatusNotifierItem m_item{redIcon(), u"Pingwell"_s};

    static QIcon redIcon()
    {
        QPixmap pixmap(22, 22);
        pixmap.fill(Qt::red);
        return QIcon(pixmap);
    }

private slots:
    void appearsWithTheStatusArea()
    {
        QSignalSpy changed(&m_item, &StatusItem::availabilityChanged);
        m_item.setContent(redIcon(), u"Pingwell, 1 waiting"_s, QString());
        QVERIFY(!m_item.isAvailable());
        m_area->start();
        // A watcher alone shows nothing.
        QVERIFY(!changed.wait(100));
        m_area->setHost(true);
        QTRY_VERIFY(m_item.isAvailable());
        QCOMPARE(changed, QList<QVariantList>{{true}});
        QTRY_COMPARE(m_area->items(), 1);
    }

    void tellsClicks()
    {
        QSignalSpy activated(&m_item, &StatusItem::activated);
        QCursor::setPos(40, 30);
        for (const QString &method : {u"Activate"_s, u"SecondaryActivate"_s})
            m_area->click(method);
        QTRY_COMPARE(activated, (QList<QVariantList>{{QPoint(40, 30)}, {QPoint(40, 30)}}));
    }

    // A later start finds the status area there: the item doesn't wait for the event loop.
    void isThereAtOnce()
    {
        const StatusNotifierItem second(redIcon(), u"Pingwell"_s);
        QVERIFY(second.isAvailable());
        QTRY_COMPARE(m_area->items(), 2);
    }

    void comesBackWhenTheStatusAreaRestarts()
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
};

QTEST_MAIN(StatusNotifierItemTest)
#include "status_notifier_item_test.moc"
