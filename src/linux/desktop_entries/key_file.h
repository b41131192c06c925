#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace pingwell {

/// The values, by key, of one group of a desktop's configuration file or of a desktop entry
/// (freedesktop.org Desktop Entry, basic format). `header` is the group's whole header line, which names several nested
/// groups in some of KDE's files. A suffix "[…]" of a key (a language or a flag) is removed. Lines in another format
/// are ignored.
[[nodiscard]] QHash<QString, QString> keyFileGroup(const QByteArray &file, const QString &header);

/// Whether the value of this key means no; a missing value does not.
[[nodiscard]] bool saysNo(const QHash<QString, QString> &group, const QString &key);
/// Whether the value of this key means yes; a missing value does not.
[[nodiscard]] bool saysYes(const QHash<QString, QString> &group, const QString &key);

} // namespace pingwell
