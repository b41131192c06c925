#pragma once

#include "model/alert.h"
#include "model/preferences.h"

#include <QStringList>
#include <QUrl>

namespace pingwell {

/// The asks whose notifications an earlier run, that was killed, left on the screen. These are taken back when the next
/// run starts; the first dashboard then tells which asks are announced again.
class LeftAsks
{
public:
    LeftAsks() = default;
    /// `preferences` still name the session in which the notifications were shown.
    LeftAsks(QStringList alertIDs, const Preferences &preferences);

    struct Fate
    {
        /// Still waiting, newest first, no more than are ever notified at once.
        QList<Alert> announced;
        QStringList dropped;
    };
    /// What becomes of them, once: a second time there are none left. In a session on another server or with another
    /// account all are dropped.
    [[nodiscard]] Fate settle(const QUrl &baseURL, const QString &email, const QList<Alert> &alerts, Instant now);

private:
    QStringList m_ids;
    QString m_baseURL;
    QString m_email;
};

} // namespace pingwell
