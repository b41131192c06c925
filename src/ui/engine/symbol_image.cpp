#include "ui/engine/symbol_image.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace pingwell {

namespace {

/// The grid that the symbols are drawn on.
constexpr int gridSize = 16;

} // namespace

QImage symbolImage(const QString &name, QSize size, const QColor &color)
{
    const QString path = QStringLiteral(":/pingwell/symbols/") + name + QStringLiteral(".svg");
    if (size.isEmpty() || !QFile::exists(path))
        return {};
    QSvgRenderer drawing(path);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(QPointF(), QSizeF(size)));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

SymbolProvider::SymbolProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{
}

QImage SymbolProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QSize wanted(requestedSize.width() > 0 ? requestedSize.width() : gridSize,
                       requestedSize.height() > 0 ? requestedSize.height() : gridSize);
    const QColor color(u'#' + id.section(u'/', 1, 1));
    const QImage image = symbolImage(id.section(u'/', 0, 0), wanted, color);
    if (size)
        *size = image.size();
    return image;
}

} // namespace pingwell
