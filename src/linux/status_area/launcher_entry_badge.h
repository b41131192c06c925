#pragma once

#include "desktop/launcher_badge.h"

#include <QObject>

namespace pingwell {

/// The badge for docks and task managers: the signal Update of com.canonical.Unity.LauncherEntry, broadcast on the
/// session bus. Main thread.
class LauncherEntryBadge final : public QObject, public LauncherBadge
{
    Q_OBJECT

public:
    explicit LauncherEntryBadge(QObject *parent = nullptr);
    /// Removes the badge.
    ~LauncherEntryBadge() override;

    void setCount(qsizetype count) override;

private:
    void announce() const;

    qint64 m_count = 0;
};

} // namespace pingwell
