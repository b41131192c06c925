#pragma once

#include "desktop/preferences.h"
#include "model/alert.h"

#include <QList>
#include <QSet>

#include <memory>

namespace pingwell {

/// The alerts that the person marked unread on this machine; the service knows no way back from read. Every change is
/// written down at once.
class UnreadOverrides
{
public:
    /// Begins with what was written down before.
    explicit UnreadOverrides(std::shared_ptr<Preferences> preferences);

    [[nodiscard]] bool contains(const QString &alertID) const { return m_ids.contains(alertID); }
    void set(const QString &alertID, bool unread);
    void remove(const QSet<QString> &alertIDs);
    /// Forgets those of other alerts than these.
    void keepOnly(const QList<Alert> &alerts);
    /// Makes those of the alerts unread that were marked so.
    void applyTo(QList<Alert> &alerts) const;

private:
    void change(const QSet<QString> &ids);

    std::shared_ptr<Preferences> m_preferences;
    QSet<QString> m_ids;
};

/// Makes the alerts with these ids unread.
void markUnread(QList<Alert> &alerts, const QSet<QString> &ids);

} // namespace pingwell
