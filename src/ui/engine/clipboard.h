#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// The desktop's clipboard, which QML can't reach by itself.
class Clipboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE void copy(const QString &text) const { QGuiApplication::clipboard()->setText(text); }
};

} // namespace pingwell
