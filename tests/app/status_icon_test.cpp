#include "app/digit_outlines.h"
#include "app/menu_bar_label.h"
#include "app/status_icon_painter.h"

#include <QSet>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class StatusIconTest : public QObject
{
    Q_OBJECT

private slots:
    void label_data();
    void label();
    void paintsAtEverySize_data();
    void paintsAtEverySize();
    void everyNumberLooksDifferent();
    void digitsStayInTheirBox();
};

void StatusIconTest::label_data()
{
    QTest::addColumn<qsizetype>("count");
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("accessibleLabel");
    QTest::newRow("none") << qsizetype(0) << u"bell"_s << QString() << u"Pingwell"_s;
    QTest::newRow("below none") << qsizetype(-1) << u"bell"_s << QString() << u"Pingwell"_s;
    QTest::newRow("one") << qsizetype(1) << u"bell.badge"_s << u"1"_s << u"Pingwell, 1 waiting"_s;
    QTest::newRow("many") << qsizetype(1234) << u"bell.badge"_s << u"1234"_s << u"Pingwell, 1234 waiting"_s;
}

void StatusIconTest::label()
{
    QFETCH(qsizetype, count);
    QFETCH(QString, symbol);
    QFETCH(QString, text);
    QFETCH(QString, accessibleLabel);
    const MenuBarLabel label = menuBarLabel(count);
    QCOMPARE(label.symbol, symbol);
    QCOMPARE(label.text, text);
    QCOMPARE(label.accessibleLabel, accessibleLabel);
}

void StatusIconTest::paintsAtEverySize_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 22, 24, 32, 44, 48, 64})
        QTest::addRow("%d", size) << size;
}

/// The bell, and the number on its ground, must still be told from the panel behind them at every size.
void StatusIconTest::paintsAtEverySize()
{
    QFETCH(int, size);
    QVERIFY(statusIcon(3).availableSizes().contains(QSize(size, size)));
    const QImage image = statusPixmap(3, size).toImage();
    int opaque = 0;
    int red = 0;
    int white = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const QColor color = image.pixelColor(x, y);
            opaque += color.alpha() > 200 ? 1 : 0;
            red += color.red() > 180 && color.green() < 110 ? 1 : 0;
            white += color.alpha() > 200 && color.green() > 200 ? 1 : 0;
        }
    }
    const int area = size * size;
    QVERIFY2(opaque > area / 3 && opaque < area * 9 / 10, qPrintable(QString::number(opaque)));
    QVERIFY2(red > area / 8, qPrintable(QString::number(red)));
    QVERIFY2(white > area / 40, qPrintable(QString::number(white)));
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
}

void StatusIconTest::everyNumberLooksDifferent()
{
    QList<QImage> images;
    for (const qsizetype count : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}) {
        const QImage image = statusPixmap(count, 22).toImage();
        QVERIFY2(!images.contains(image), qPrintable(QString::number(count)));
        images += image;
    }
    QCOMPARE(statusPixmap(11, 22).toImage(), images.last());
}

void StatusIconTest::digitsStayInTheirBox()
{
    for (const QChar character : u"123456789+"_s) {
        const QRectF bounds = digitOutline(character).boundingRect();
        QVERIFY2(QRectF(0, 0, 6, 10).contains(bounds) && bounds.height() > 4, qPrintable(QString(character)));
    }
}

QTEST_MAIN(StatusIconTest)
#include "status_icon_test.moc"
