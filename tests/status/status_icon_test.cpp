#include "status/status_icon_painter.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

constexpr StatusCondition following = StatusCondition::following;

class StatusIconTest : public QObject
{
    Q_OBJECT

private slots:
    /// The bell, and the number on its ground, must still be told from the panel behind them at every size.
    void paintsAtEverySize()
    {
        for (const int size : {16, 22, 24, 32, 44, 48, 64}) {
            QVERIFY(statusIcon(3, following).availableSizes().contains(QSize(size, size)));
            const QImage image = statusPixmap(3, following, size).toImage();
            int opaque = 0;
            int red = 0;
            int white = 0;
            for (int pixel = 0; pixel < size * size; ++pixel) {
                const QColor color = image.pixelColor(pixel % size, pixel / size);
                opaque += color.alpha() > 200 ? 1 : 0;
                red += color.red() > 180 && color.green() < 110 ? 1 : 0;
                white += color.alpha() > 200 && color.green() > 200 ? 1 : 0;
            }
            const int area = size * size;
            QVERIFY2(opaque > area / 3 && opaque < area * 9 / 10, qPrintable(QString::number(opaque)));
            QVERIFY2(red > area / 8, qPrintable(QString::number(red)));
            QVERIFY2(white > area / 40, qPrintable(QString::number(white)));
        }
    }

    void everyNumberLooksDifferent()
    {
        QList<QImage> images;
        for (qsizetype count = 0; count <= 10; ++count) {
            const QImage image = statusPixmap(count, following, 22).toImage();
            QVERIFY2(!images.contains(image), qPrintable(QString::number(count)));
            images += image;
        }
        QCOMPARE(statusPixmap(11, following, 22).toImage(), images.last());
        const qsizetype nothing = 0;
        for (const qsizetype count : {nothing, qsizetype(3)}) {
            const QImage offline = statusPixmap(count, StatusCondition::offline, 22).toImage();
            QVERIFY(!images.contains(offline));
            images += offline;
        }
        QVERIFY(!images.contains(statusPixmap(nothing, StatusCondition::signedOut, 22).toImage()));
    }
};

QTEST_MAIN(StatusIconTest)
#include "status_icon_test.moc"
