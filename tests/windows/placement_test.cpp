#include "windows/panel_placement.h"
#include "windows/panel_visibility.h"
#include "windows/window_frame.h"

#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// When the panel is there, and where it and the window are.
class PlacementTest : public QObject
{
    Q_OBJECT

private slots:
    void clickThatTookTheFocusDoesNotReopen()
    {
        const PanelVisibility::TimePoint now{};
        PanelVisibility visibility;
        QVERIFY(visibility.clicked(now));
        visibility.shown();
        visibility.activated();
        QVERIFY(visibility.deactivated(now, false));
        visibility.hidden();
        QVERIFY(!visibility.clicked(now + 249ms));
        QVERIFY(visibility.clicked(now + 250ms));
        visibility.shown();
        QVERIFY2(!visibility.deactivated(now, false), "the focus of an earlier showing doesn't count");
    }

    void unsentReplyKeepsThePanel()
    {
        const PanelVisibility::TimePoint now{};
        PanelVisibility visibility;
        visibility.shown();
        visibility.activated();
        QVERIFY(!visibility.deactivated(now, true));
        QVERIFY2(!visibility.clicked(now), "the status item still closes it");
        QVERIFY(visibility.deactivated(now, false));
    }

    void position()
    {
        const QSize panel(340, 500);
        const QRect belowTopBar(0, 30, 1000, 770);
        const QRect aboveBottomBar(0, 0, 1000, 770);
        QCOMPARE(panelPosition({995, 12}, belowTopBar, panel), QPoint(652, 38));
        QCOMPARE(panelPosition({3, 790}, aboveBottomBar, panel), QPoint(8, 262));
        QCOMPARE(panelPosition({500, 100}, aboveBottomBar, panel), QPoint(330, 108));
        QCOMPARE(panelPosition({-1200, 5}, QRect(-1600, 30, 1600, 900), panel), QPoint(-1370, 38));
        QCOMPARE(panelPosition({100, 5}, QRect(0, 0, 300, 400), panel), QPoint(8, 8));
    }

    void windowFrame()
    {
        const QRect frame(-1200, 40, 1080, 680);
        QCOMPARE(windowFrameFromText(windowFrameText(frame)), frame);
        for (const QString &damaged : {u""_s, u"1 2 3"_s, u"1 2 3 4 5"_s, u"1 2 3 x"_s, u"1 2 0 5"_s, u"1 2 -3 5"_s,
                                       u"2000000000 2 2000000000 5"_s})
            QVERIFY2(!windowFrameFromText(damaged), qPrintable(damaged));
        const QRect screen(0, 30, 1000, 800);
        QCOMPARE(fittedWindowFrame(QRect(10, 40, 100, 100), screen), QRect(10, 40, 100, 100));
        QCOMPARE(fittedWindowFrame(QRect(3000, 900, 100, 100), screen), QRect(900, 730, 100, 100));
        QCOMPARE(fittedWindowFrame(QRect(-20, 0, 1500, 100), screen), QRect(0, 30, 1000, 100));
    }
};

QTEST_GUILESS_MAIN(PlacementTest)
#include "placement_test.moc"
