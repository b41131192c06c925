#include "store/mark_unread.h"

namespace pingwell {

void markUnread(QList<Alert> &alerts, const QSet<QString> &ids)
{
    if (ids.isEmpty())
        return;
    for (Alert &alert : alerts) {
        if (alert.read && ids.contains(alert.id))
            alert.read = false;
    }
}

} // namespace pingwell
