// F-quick: an empty Qt Quick window on the software renderer.
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickView>

int main(int argc, char **argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nRectangle { width: 340; height: 480; color: \"white\" }", QUrl());
    QQuickView view(&engine, nullptr);
    view.setContent(QUrl(), &component, component.create());
    view.show();
    return QGuiApplication::exec();
}
