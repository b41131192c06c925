#pragma once

#include "linux/preferences/preference_changes.h"

#include <QJsonObject>
#include <QSet>
#include <QString>

#include <optional>

namespace pingwell {

/// A file of preferences that two programs may change at a time: only what was changed is laid over what the file holds
/// by then, under a lock, so that neither loses the other's keys, nor those of a later version. A damaged file is set
/// aside under another name; one that may not be read stays as it is. The first failure of each kind is reported on
/// standard output. One thread at a time; blocks on the disk, and at most 500 ms on the lock.
class SharedPreferencesFile
{
public:
    explicit SharedPreferencesFile(QString path);

    struct Opened
    {
        QJsonObject content = {};
        /// Whether this is all that earlier runs kept.
        bool isWhole = false;
    };
    /// Reads it at the start of a run; it need not exist.
    [[nodiscard]] Opened open();

    /// Lays `changes` over the file, which is created where there is none. What it holds then; nothing where it could
    /// not be written and is as it was.
    [[nodiscard]] std::optional<QJsonObject> write(const PreferenceChanges &changes);

private:
    [[nodiscard]] std::optional<QJsonObject> readPresent();
    std::nullopt_t fail(const QString &what, const QString &reason);

    QString m_path;
    QSet<QString> m_reported;
};

} // namespace pingwell
