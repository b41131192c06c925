#include "demo/demo_data.h"
#include "support/manual_clock.h"
#include "support/memory_preferences.h"
#include "windows/qml_windows.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

class LightAppearance final : public Appearance
{
public:
    bool isDark() const override { return false; }
    bool isMotionReduced() const override { return true; }
};

/// The visible window that is, or is not, the frameless panel.
QQuickView *visibleWindow(bool isPanel)
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->flags().testFlag(Qt::FramelessWindowHint) == isPanel)
            return qobject_cast<QQuickView *>(window);
    }
    return nullptr;
}

} // namespace

/// The real windows on a display that nobody sees.
class QmlWindowsTest : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<MemoryPreferences> m_preferences;
    std::unique_ptr<AppStore> m_store;
    std::unique_ptr<QmlWindows> m_windows;

    void open()
    {
        m_windows.reset();
        m_windows =
            std::make_unique<QmlWindows>(m_store.get(), false, m_preferences, std::make_unique<LightAppearance>());
    }

private slots:
    void init()
    {
        const auto clock = std::make_shared<ManualClock>(instantFromMilliseconds(1'700'000'000'000.0));
        m_preferences = std::make_shared<MemoryPreferences>();
        m_store = std::make_unique<AppStore>(demoData(clock->now()), true, nullptr, clock->now(), nullptr, clock);
        open();
    }

    void cleanup() { m_windows.reset(); }

    void panelClosesOnEscapeAndClick()
    {
        m_windows->togglePanel({400, 5});
        QVERIFY(visibleWindow(true));
        QCOMPARE(visibleWindow(true)->width(), 340);
        QVERIFY(QTest::qWaitForWindowActive(visibleWindow(true)));
        QTest::keyClick(visibleWindow(true), Qt::Key_Escape);
        QVERIFY(!visibleWindow(true));
        m_windows->togglePanel({400, 5});
        QVERIFY(visibleWindow(true));
        m_windows->togglePanel({400, 5});
        QVERIFY(!visibleWindow(true));
    }

    void panelIsAsHighAsWhatItShowsUnlessPointedAt()
    {
        m_windows->showPanel({400, 5});
        QQuickView *const panel = visibleWindow(true);
        QVERIFY(QTest::qWaitForWindowActive(panel));
        const int full = panel->height();
        for (const Alert &ask : m_store->needsReply())
            m_store->deleteAlert(ask.id);
        QTRY_VERIFY(panel->height() < full);
        const int low = panel->height();
        QTest::mouseMove(panel, {170, 20});
        m_store->setFocusMode(true);
        for (int turn = 0; turn < 3; ++turn) {
            panel->grabWindow();
            QCoreApplication::processEvents();
        }
        QVERIFY(panel->rootObject()->implicitHeight() < low);
        QCOMPARE(panel->height(), low);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(panel, &leave);
        QTRY_VERIFY(panel->height() < low);
    }

    void panelStaysWhileAReplyIsWritten()
    {
        m_windows->showPanel({400, 5});
        QQuickView *const panel = visibleWindow(true);
        QVERIFY(QTest::qWaitForWindowActive(panel));
        m_store->setReplyDraft(u"#eng"_s, u"b5"_s);
        m_windows->showMain({});
        QVERIFY(QTest::qWaitForWindowActive(visibleWindow(false)));
        QVERIFY(panel->isVisible());
        panel->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(panel));
        m_store->setReplyDraft({}, u"b5"_s);
        m_windows->showMain({});
        QTRY_VERIFY(!panel->isVisible());
    }

    void mainWindowComesBackWhereItWas()
    {
        QVERIFY(QGuiApplication::topLevelWindows().isEmpty());
        m_windows->showMain({});
        m_windows->showMain({});
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        // As wide as this display, which draws a frame of two pixels around and is narrower than the window likes to
        // be.
        const QRect frame(2, 20, 800, 570);
        visibleWindow(false)->setGeometry(frame);
        QVERIFY(visibleWindow(false)->rootObject()->setProperty("sidebarWidth", 193));
        m_windows->showPanel({});
        m_windows.reset();
        QVERIFY(QGuiApplication::topLevelWindows().isEmpty());
        open();
        m_windows->showMain({});
        QCOMPARE(visibleWindow(false)->geometry(), frame);
        QCOMPARE(visibleWindow(false)->rootObject()->property("sidebarWidth").toInt(), 193);
    }
};

QTEST_MAIN(QmlWindowsTest)
#include "qml_windows_test.moc"
