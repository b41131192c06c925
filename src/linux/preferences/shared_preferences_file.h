#pragma once

#include "linux/preferences/preference_changes.h"

#include <QJsonObject>
#include <QSet>
#include <QString>

#include <optional>

namespace pingwell {

/// A preferences file that two programs may change at the same time. A write locks the file, reads it and applies only
/// this program's changes, so that neither program loses keys of the other, or of a later version. A damaged file is
/// renamed; an unreadable one stays as it is. The first failure of each kind is reported on standard output. One thread
/// at a time; blocks on the disk, and at most 500 ms on the lock.
class SharedPreferencesFile
{
public:
    explicit SharedPreferencesFile(QString path);

    struct Opened
    {
        QJsonObject content = {};
        /// Whether everything that earlier runs stored could be read.
        bool isWhole = false;
    };
    /// Reads the file at the start of a run; it need not exist.
    [[nodiscard]] Opened open();

    /// Writes `changes` to the file, which is created if there is none. Returns what the file holds then; none on
    /// failure, and then the file is unchanged.
    [[nodiscard]] std::optional<QJsonObject> write(const PreferenceChanges &changes);

private:
    [[nodiscard]] std::optional<QJsonObject> readPresent();
    std::nullopt_t fail(const QString &what, const QString &reason);

    QString m_path;
    QSet<QString> m_reported;
};

} // namespace pingwell
