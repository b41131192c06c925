#pragma once

#include <QString>
#include <QUrl>

namespace pingwell {

/// The resource URL of the screen with this QML name.
[[nodiscard]] inline QUrl screenSource(const QString &name)
{
    return QUrl(QStringLiteral("qrc:/qt/qml/Pingwell/%1.qml").arg(name));
}

} // namespace pingwell
