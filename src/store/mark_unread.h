#pragma once

#include "model/alert.h"

#include <QList>
#include <QSet>

namespace pingwell {

/// Makes those of the alerts unread that the person marked so on this machine.
void markUnread(QList<Alert> &alerts, const QSet<QString> &ids);

} // namespace pingwell
