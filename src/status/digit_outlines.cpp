#include "status/digit_outlines.h"

#include <QTransform>

namespace pingwell {

namespace {

QPainterPath one()
{
    QPainterPath path(QPointF(1.3, 2.5));
    path.lineTo(3.6, 0.7);
    path.lineTo(3.6, 9.3);
    return path;
}

QPainterPath two()
{
    QPainterPath path(QPointF(0.8, 2.9));
    path.cubicTo(0.8, 1.5, 1.7, 0.7, 3.0, 0.7);
    path.cubicTo(4.3, 0.7, 5.2, 1.6, 5.2, 2.8);
    path.cubicTo(5.2, 4.6, 3.4, 5.8, 0.8, 9.3);
    path.lineTo(5.3, 9.3);
    return path;
}

QPainterPath three()
{
    QPainterPath path(QPointF(0.8, 1.7));
    path.cubicTo(1.4, 1.0, 2.1, 0.7, 2.9, 0.7);
    path.cubicTo(4.2, 0.7, 5.1, 1.5, 5.1, 2.7);
    path.cubicTo(5.1, 3.9, 4.2, 4.7, 2.6, 4.7);
    path.cubicTo(4.3, 4.7, 5.3, 5.6, 5.3, 6.9);
    path.cubicTo(5.3, 8.3, 4.3, 9.3, 2.9, 9.3);
    path.cubicTo(2.0, 9.3, 1.2, 8.9, 0.6, 8.2);
    return path;
}

QPainterPath four()
{
    QPainterPath path(QPointF(4.2, 9.3));
    path.lineTo(4.2, 0.7);
    path.lineTo(0.5, 6.6);
    path.lineTo(5.6, 6.6);
    return path;
}

QPainterPath five()
{
    QPainterPath path(QPointF(4.9, 0.7));
    path.lineTo(1.4, 0.7);
    path.lineTo(1.0, 4.8);
    path.cubicTo(1.6, 4.2, 2.2, 3.9, 3.0, 3.9);
    path.cubicTo(4.4, 3.9, 5.3, 5.0, 5.3, 6.5);
    path.cubicTo(5.3, 8.2, 4.3, 9.3, 2.8, 9.3);
    path.cubicTo(1.9, 9.3, 1.2, 8.9, 0.6, 8.3);
    return path;
}

QPainterPath six()
{
    QPainterPath path(QPointF(4.8, 1.4));
    path.cubicTo(4.3, 0.9, 3.8, 0.7, 3.2, 0.7);
    path.cubicTo(1.5, 0.7, 0.7, 2.6, 0.7, 5.6);
    path.cubicTo(0.7, 8.0, 1.6, 9.3, 3.0, 9.3);
    path.cubicTo(4.4, 9.3, 5.3, 8.2, 5.3, 6.6);
    path.cubicTo(5.3, 5.0, 4.4, 4.0, 3.1, 4.0);
    path.cubicTo(1.9, 4.0, 0.9, 4.9, 0.7, 6.2);
    return path;
}

QPainterPath seven()
{
    QPainterPath path(QPointF(0.7, 0.7));
    path.lineTo(5.3, 0.7);
    path.lineTo(2.3, 9.3);
    return path;
}

QPainterPath eight()
{
    QPainterPath path;
    path.addEllipse(QPointF(3.0, 2.7), 1.9, 2.0);
    path.addEllipse(QPointF(3.0, 7.0), 2.3, 2.3);
    return path;
}

QPainterPath nine()
{
    return QTransform(-1, 0, 0, -1, 6, 10).map(six());
}

QPainterPath plus()
{
    QPainterPath path(QPointF(3.0, 2.6));
    path.lineTo(3.0, 7.4);
    path.moveTo(0.6, 5.0);
    path.lineTo(5.4, 5.0);
    return path;
}

} // namespace

QPainterPath digitOutline(QChar character)
{
    switch (character.unicode()) {
    case u'1':
        return one();
    case u'2':
        return two();
    case u'3':
        return three();
    case u'4':
        return four();
    case u'5':
        return five();
    case u'6':
        return six();
    case u'7':
        return seven();
    case u'8':
        return eight();
    case u'9':
        return nine();
    case u'+':
        return plus();
    default:
        return {};
    }
}

} // namespace pingwell
