#include "window.h"

#include "timing.h"

#include <QCoreApplication>

#include <algorithm>

namespace pingwell {

double longestTurn(const std::function<bool()> &done)
{
    QElapsedTimer turn;
    double longest = 0;
    while (!done()) {
        turn.start();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        longest = std::max(longest, milliseconds(turn));
    }
    return longest;
}

void drawFrame(QQuickView &view)
{
    bool drawn = false;
    const auto connection = QObject::connect(
        &view, &QQuickWindow::frameSwapped, &view, [&drawn] { drawn = true; }, Qt::DirectConnection);
    view.update();
    longestTurn([&drawn] { return drawn; });
    QObject::disconnect(connection);
}

void showComponent(QQuickView &view, AppStore &store, const QString &component)
{
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(&store)}});
    view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Pingwell/%1.qml").arg(component)));
    if (view.status() != QQuickView::Ready)
        qFatal("a screen does not load");
}

} // namespace pingwell
