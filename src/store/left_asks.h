#pragma once

#include "model/alert.h"

#include <QString>
#include <QStringList>

namespace pingwell {

/// The asks whose notifications an earlier run, that was killed, left on the screen. These are taken back when the next
/// run starts; the first dashboard then tells which asks are announced again.
class LeftAsks
{
public:
    LeftAsks() = default;
    /// `owner` is the person at a server (`notificationMarkOwner`) to whom the notifications were shown.
    LeftAsks(QStringList alertIDs, QString owner);

    struct Fate
    {
        /// Still waiting, newest first, no more than are ever notified at once.
        QList<Alert> announced;
        QStringList dropped;
    };
    /// What becomes of them in a session of `owner`, once: a second time there are none left. Another owner has all
    /// dropped; while the owner is not known yet, which is an empty one, nothing is decided.
    [[nodiscard]] Fate settle(const QString &owner, const QList<Alert> &alerts, Instant now);

private:
    QStringList m_ids;
    QString m_owner;
};

} // namespace pingwell
