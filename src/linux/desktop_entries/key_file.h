#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace pingwell {

/// The values of one group of a desktop's configuration file or of a desktop entry (Desktop Entry Specification, Basic
/// format), by key; `header` is the group's whole header line, which in KDE's files may name several nested groups. A
/// key's "[…]" ending (a language, a flag) goes. Lines that are none of the format are passed over.
[[nodiscard]] QHash<QString, QString> keyFileGroup(const QByteArray &file, const QString &header);

/// Whether a value of such a file says no; absent ones don't.
[[nodiscard]] bool saysNo(const QHash<QString, QString> &group, const QString &key);
/// Whether a value of such a file says yes; absent ones don't.
[[nodiscard]] bool saysYes(const QHash<QString, QString> &group, const QString &key);

} // namespace pingwell
