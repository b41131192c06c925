#pragma once

#include <QString>
#include <QUrl>

namespace pingwell {

/// Where the screen with this QML name lies in the program.
[[nodiscard]] inline QUrl screenSource(const QString &name)
{
    return QUrl(QStringLiteral("qrc:/qt/qml/Pingwell/%1.qml").arg(name));
}

} // namespace pingwell
