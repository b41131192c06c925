// F-controls: one small window of stock Controls on the software renderer.
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
    component.setData("import QtQuick\nimport QtQuick.Controls.Basic\n"
                      "Pane { width: 1080; height: 680\n"
                      "    Column { Label { text: \"Name\" } TextField {} Button { text: \"Save\" } CheckBox {} } }",
                      QUrl());
    QQuickView view(&engine, nullptr);
    view.setContent(QUrl(), &component, component.create());
    view.show();
    return QGuiApplication::exec();
}
