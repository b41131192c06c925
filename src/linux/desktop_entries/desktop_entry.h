#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

// Writing desktop entries (Desktop Entry Specification of freedesktop.org).

/// `text` as a value.
[[nodiscard]] QString desktopEntryValue(QString text);

/// `path` as the program of an Exec line: quoted, with the characters that mean something there escaped.
[[nodiscard]] QString desktopEntryProgram(const QString &path);

/// Writes the lines under "[Desktop Entry]" to `file`, whole or not at all, making its folder. Returns what went wrong,
/// in words.
[[nodiscard]] std::optional<QString> writeDesktopEntry(const QString &file, const QStringList &lines);

} // namespace pingwell
