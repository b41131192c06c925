#pragma once

#include "notify/alert_notifying.h"

#include <QStringList>

namespace pingwell {

/// Remembers what it was asked to show and to take back, a line each: "<id> in <workspace>, sounds".
class RecordingNotifier final : public AlertNotifying
{
public:
    void deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound) override
    {
        QString line = alert.id;
        if (workspaceName)
            line += QStringLiteral(" in ") + *workspaceName;
        if (sound)
            line += QStringLiteral(", sounds");
        delivered << line;
    }

    void remove(const QStringList &identifiers) override { removed << identifiers; }
    void removeAll() override { ++removedAll; }

    QStringList delivered;
    QStringList removed;
    int removedAll = 0;
};

} // namespace pingwell
