#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace pingwell {

// The file of preferences as the disk has it. Failures come back in words.

/// What a file holds, as far as it can be told.
struct PreferencesContent
{
    enum class Kind { object, damaged, unreadable };

    Kind kind = Kind::object;
    QJsonObject object = {};
    QString error = {};
};

/// Reads the file at `path`; an empty object where there is none.
[[nodiscard]] PreferencesContent readPreferencesFile(const QString &path);

/// Replaces the file as a whole, readable for its owner alone, so that it lasts through a power failure. Returns what
/// went wrong; the file is then as it was.
[[nodiscard]] std::optional<QString> replacePreferencesFile(const QString &path, const QJsonObject &content);

/// Renames a damaged file to a name that is free; its new name, or nothing.
[[nodiscard]] QString setPreferencesFileAside(const QString &path);

/// Makes the folder of `path`, for its owner alone, where there is none; false when it can't.
[[nodiscard]] bool makePreferencesFolder(const QString &path);

} // namespace pingwell
