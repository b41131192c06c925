#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace pingwell {

// Functions that read and write the preferences' file. They return failures as text.

/// The content of a file, or why there is none.
struct PreferencesContent
{
    enum class Kind { object, damaged, unreadable };

    Kind kind = Kind::object;
    QJsonObject object = {};
    QString error = {};
};

/// Reads the file at `path`; an empty object where there is no file.
[[nodiscard]] PreferencesContent readPreferencesFile(const QString &path);

/// Replaces the whole file, with read access for its owner only, so that it survives a power failure. Returns an error
/// message, and then the file is unchanged; none on success.
[[nodiscard]] std::optional<QString> replacePreferencesFile(const QString &path, const QJsonObject &content);

/// Renames a damaged file to a free name; returns the new name, or an empty text on failure.
[[nodiscard]] QString setPreferencesFileAside(const QString &path);

/// Creates the folder of `path`, for its owner only, if there is none; false on failure.
[[nodiscard]] bool makePreferencesFolder(const QString &path);

} // namespace pingwell
