#include "status/status_icon_painter.h"

#include "status/digit_outlines.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace pingwell {

namespace {

/// The icon is drawn in a square with sides of this many units.
constexpr double grid = 24;

/// A grey between light and dark: its contrast is at least 3:1 against white and against near-black status areas.
constexpr QColor bellColor(0x80, 0x86, 0x92);
constexpr QColor groundColor(0xd6, 0x3a, 0x2f);
constexpr QColor numberColor(0xff, 0xff, 0xff);

constexpr double groundHeight = 14.5;
constexpr double groundPadding = 3.4;
constexpr double digitScale = 0.94;
constexpr double digitHeight = 10 * digitScale;
constexpr double digitWidth = 6 * digitScale;
constexpr double digitGap = 1.3;

/// Beside a number the bell is smaller and moves to the opposite corner.
constexpr double bellScaleBesideNumber = 0.88;

QPainterPath makeBell()
{
    QPainterPath path(QPointF(3.5, 18));
    path.cubicTo(5.2, 16, 6, 14.5, 6, 11);
    path.cubicTo(6, 6.5, 8.2, 3.5, 12, 3.5);
    path.cubicTo(15.8, 3.5, 18, 6.5, 18, 11);
    path.cubicTo(18, 14.5, 18.8, 16, 20.5, 18);
    path.closeSubpath();
    QPainterPath clapper(QPointF(9.2, 20));
    clapper.lineTo(14.8, 20);
    clapper.cubicTo(14.4, 21.6, 13.4, 22.4, 12, 22.4);
    clapper.cubicTo(10.6, 22.4, 9.6, 21.6, 9.2, 20);
    QPainterPath crown;
    crown.addEllipse(QPointF(12, 3), 1.8, 1.8);
    return path.united(crown).united(clapper);
}

/// United only once, because uniting the paths costs more than drawing every size.
const QPainterPath &bell()
{
    static const QPainterPath path = makeBell();
    return path;
}

/// The number as it fits beside the bell; the label has the exact number.
QString shortNumber(qsizetype count)
{
    return count > 9 ? QStringLiteral("9+") : QString::number(count);
}

double widthOf(const QString &text)
{
    return double(text.size()) * (digitWidth + digitGap) - digitGap;
}

/// The filled shape behind the number, in the lower right corner.
QRectF groundFor(const QString &text)
{
    const double width = std::max(groundHeight, widthOf(text) + 2 * groundPadding);
    return {grid - width, grid - groundHeight, width, groundHeight};
}

void drawNumber(QPainter &painter, const QString &text)
{
    const QRectF ground = groundFor(text);
    // A transparent gap keeps the bell and the number apart at the smallest sizes.
    painter.setPen(Qt::NoPen);
    painter.setBrush(groundColor);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.drawRoundedRect(ground.adjusted(-1.5, -1.5, 1.5, 1.5), 9, 9);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawRoundedRect(ground, groundHeight / 2, groundHeight / 2);

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(numberColor, 1.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPointF place(ground.center().x() - widthOf(text) / 2, ground.center().y() - digitHeight / 2);
    const QTransform smaller = QTransform::fromScale(digitScale, digitScale);
    for (const QChar character : text) {
        painter.drawPath(smaller.map(digitOutline(character)).translated(place));
        place.rx() += digitWidth + digitGap;
    }
}

/// A diagonal line with a transparent gap around it.
void drawSlash(QPainter &painter)
{
    const QLineF slash(4, 3, 20, 21);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(QPen(bellColor, 6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(slash);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(bellColor, 2.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(slash);
}

void drawBell(QPainter &painter, StatusCondition condition)
{
    const bool isHollow = condition == StatusCondition::signedOut;
    painter.setBrush(isHollow ? QBrush(Qt::NoBrush) : QBrush(bellColor));
    painter.setPen(isHollow ? QPen(bellColor, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin) : QPen(Qt::NoPen));
    painter.drawPath(bell());
    if (condition == StatusCondition::offline)
        drawSlash(painter);
}

/// Draws the bell smaller and moved, to leave room for the number.
void drawAside(QPainter &painter, StatusCondition condition)
{
    painter.save();
    painter.translate(-2.5, -0.8);
    painter.scale(bellScaleBesideNumber, bellScaleBesideNumber);
    drawBell(painter, condition);
    painter.restore();
}

} // namespace

QPixmap statusPixmap(qsizetype count, StatusCondition condition, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / grid, size / grid);
    if (count > 0)
        drawAside(painter, condition);
    else
        drawBell(painter, condition);
    if (count > 0)
        drawNumber(painter, shortNumber(count));
    painter.end();
    return QPixmap::fromImage(image);
}

QIcon statusIcon(qsizetype count, StatusCondition condition)
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(statusPixmap(count, condition, size));
    return icon;
}

} // namespace pingwell
