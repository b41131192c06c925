#include "app/panel_placement.h"
#include "app/panel_visibility.h"

#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;

class PanelTest : public QObject
{
    Q_OBJECT

private slots:
    void clickTogglesThePanel();
    void clickThatTookTheFocusDoesNotReopen();
    void focusLossHidesOnlyAfterFocus();
    void unsentReplyKeepsThePanel();
    void position_data();
    void position();

private:
    PanelVisibility::TimePoint m_now{};
};

void PanelTest::clickTogglesThePanel()
{
    PanelVisibility visibility;
    QVERIFY(visibility.clicked(m_now));
    visibility.shown();
    QVERIFY(!visibility.clicked(m_now));
    visibility.hidden();
    QVERIFY(visibility.clicked(m_now));
}

void PanelTest::clickThatTookTheFocusDoesNotReopen()
{
    PanelVisibility visibility;
    visibility.shown();
    visibility.activated();
    QVERIFY(visibility.deactivated(m_now, false));
    visibility.hidden();
    QVERIFY(!visibility.clicked(m_now + 249ms));
    QVERIFY(visibility.clicked(m_now + 250ms));
}

void PanelTest::focusLossHidesOnlyAfterFocus()
{
    PanelVisibility visibility;
    visibility.shown();
    QVERIFY(!visibility.deactivated(m_now, false));
    visibility.activated();
    QVERIFY(visibility.deactivated(m_now, false));
    visibility.hidden();
    visibility.shown();
    QVERIFY2(!visibility.deactivated(m_now, false), "the focus of an earlier showing doesn't count");
}

void PanelTest::unsentReplyKeepsThePanel()
{
    PanelVisibility visibility;
    visibility.shown();
    visibility.activated();
    QVERIFY(!visibility.deactivated(m_now, true));
    QVERIFY2(!visibility.clicked(m_now), "the status item still closes it");
    QVERIFY(visibility.deactivated(m_now, false));
}

void PanelTest::position_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QPoint>("expected");
    const QRect belowTopBar(0, 30, 1000, 770);
    const QRect aboveBottomBar(0, 0, 1000, 770);
    QTest::newRow("top bar") << QPoint(500, 12) << belowTopBar << QPoint(330, 38);
    QTest::newRow("top bar, right corner") << QPoint(995, 12) << belowTopBar << QPoint(652, 38);
    QTest::newRow("bottom bar, left corner") << QPoint(3, 790) << aboveBottomBar << QPoint(8, 262);
    QTest::newRow("free pointer") << QPoint(500, 100) << aboveBottomBar << QPoint(330, 108);
    QTest::newRow("second screen") << QPoint(-1200, 5) << QRect(-1600, 30, 1600, 900) << QPoint(-1370, 38);
    QTest::newRow("too small a screen") << QPoint(100, 5) << QRect(0, 0, 300, 400) << QPoint(8, 8);
}

void PanelTest::position()
{
    QFETCH(QPoint, pointer);
    QFETCH(QRect, available);
    QFETCH(QPoint, expected);
    QCOMPARE(panelPosition(pointer, available, QSize(340, 500)), expected);
}

QTEST_GUILESS_MAIN(PanelTest)
#include "panel_test.moc"
