#include "app/window_frame.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class WindowFrameTest : public QObject
{
    Q_OBJECT

private slots:
    void text();
    void fitted_data();
    void fitted();
};

void WindowFrameTest::text()
{
    const QRect frame(-1200, 40, 1080, 680);
    QCOMPARE(windowFrameFromText(windowFrameText(frame)), frame);
    for (const QString &damaged : {u""_s, u"1 2 3"_s, u"1 2 3 4 5"_s, u"1 2 3 x"_s, u"1 2 0 5"_s, u"1 2 -3 5"_s,
                                   u"2000000000 2 2000000000 5"_s, u"1  3 4"_s}) {
        QVERIFY2(!windowFrameFromText(damaged), qPrintable(damaged));
    }
}

void WindowFrameTest::fitted_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("fits") << QRect(10, 40, 100, 100) << QRect(10, 40, 100, 100);
    QTest::newRow("screen gone") << QRect(3000, 900, 100, 100) << QRect(900, 730, 100, 100);
    QTest::newRow("behind the bar") << QRect(-20, 0, 100, 100) << QRect(0, 30, 100, 100);
    QTest::newRow("too large") << QRect(100, 100, 1500, 900) << QRect(0, 30, 1000, 800);
}

void WindowFrameTest::fitted()
{
    QFETCH(QRect, frame);
    QFETCH(QRect, expected);
    QCOMPARE(fittedWindowFrame(frame, QRect(0, 30, 1000, 800)), expected);
}

QTEST_GUILESS_MAIN(WindowFrameTest)
#include "window_frame_test.moc"
