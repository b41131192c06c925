#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

// Functions that write desktop entries (Desktop Entry standard of freedesktop.org).

/// `text` escaped as a value.
[[nodiscard]] QString desktopEntryValue(QString text);

/// `path` as the program of an Exec line: quoted, with the special characters escaped.
[[nodiscard]] QString desktopEntryProgram(const QString &path);

/// Writes the lines under "[Desktop Entry]" to `file`, completely or not at all, and creates its folder. Returns an
/// error message; none on success.
[[nodiscard]] std::optional<QString> writeDesktopEntry(const QString &file, const QStringList &lines);

} // namespace pingwell
