#pragma once

#include <QColor>
#include <QImage>
#include <QQuickImageProvider>
#include <QSize>
#include <QString>

namespace pingwell {

/// The symbol of that name (as "bell.badge") drawn in one colour at exactly `size` pixels; an empty image for a name
/// that does not exist. Any thread.
[[nodiscard]] QImage symbolImage(const QString &name, QSize size, const QColor &color);

/// Serves "image://symbol/<name>/<colour as aarrggbb>" at the pixel size asked for, which already holds the screen's
/// scale. Qt Quick keeps what it was given by address and size, so that a symbol is drawn once per colour and scale.
class SymbolProvider : public QQuickImageProvider
{
public:
    SymbolProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace pingwell
