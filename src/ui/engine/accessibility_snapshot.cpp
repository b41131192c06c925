#include "ui/engine/accessibility_snapshot.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

namespace pingwell {

namespace {

QString roleWord(QAccessible::Role role)
{
    return QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(role));
}

/// The item's rectangle in the screen's own pixels. Windows are placed in scaled coordinates that start at the screen's
/// corner, which is where it is in both.
QRectF screenRectangle(const QQuickItem &item)
{
    const QQuickWindow &window = *item.window();
    const QPointF corner(window.screen()->geometry().topLeft());
    const qreal scale = window.screen()->devicePixelRatio();
    const QRectF inScene = item.mapRectToScene(QRectF(0, 0, item.width(), item.height()));
    const QPointF onScreen = inScene.topLeft() + QPointF(window.mapToGlobal(QPoint()));
    return {corner + (onScreen - corner) * scale, inScene.size() * scale};
}

QString valueOf(QQuickItem &item, QAccessibleInterface &accessible)
{
    if (accessible.role() == QAccessible::EditableText)
        return item.property("text").toString();
    return accessible.text(QAccessible::Description);
}

QJsonObject element(QQuickItem &item, QAccessibleInterface &accessible)
{
    const QRectF place = screenRectangle(item);
    return {
        {QStringLiteral("id"), item.objectName()},
        {QStringLiteral("role"), roleWord(accessible.role())},
        {QStringLiteral("name"), accessible.text(QAccessible::Name)},
        {QStringLiteral("value"), valueOf(item, accessible)},
        {QStringLiteral("enabled"), item.isEnabled()},
        {QStringLiteral("checked"), bool(accessible.state().checked)},
        {QStringLiteral("x"), place.x()},
        {QStringLiteral("y"), place.y()},
        {QStringLiteral("width"), place.width()},
        {QStringLiteral("height"), place.height()},
        {QStringLiteral("window"), item.window()->title()},
    };
}

void appendElements(QJsonArray &elements, QQuickItem &item)
{
    if (!item.isVisible())
        return;
    if (!item.objectName().isEmpty()) {
        if (auto *accessible = QAccessible::queryAccessibleInterface(&item))
            elements.append(element(item, *accessible));
    }
    const QList<QQuickItem *> children = item.childItems();
    for (QQuickItem *child : children)
        appendElements(elements, *child);
}

} // namespace

QString accessibilitySnapshot()
{
    QJsonArray elements;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        auto *const quick = qobject_cast<QQuickWindow *>(window);
        if (quick && quick->isVisible())
            appendElements(elements, *quick->contentItem());
    }
    return QString::fromUtf8(QJsonDocument(elements).toJson(QJsonDocument::Compact));
}

} // namespace pingwell
