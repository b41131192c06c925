#pragma once

#include "api/dashboard.h"
#include "store/field_changes.h"
#include "store/mutations.h"
#include "store/navigation.h"
#include "store/records.h"
#include "store/unread_overrides.h"

#include <QByteArray>
#include <QObject>

namespace pingwell {

/// Makes a dashboard the state: all of it is in place before the first observer hears of any, and what the person has
/// on this computer alone, or has changed and not yet been refused, lies over it. Main thread.
class Merge : public QObject
{
    Q_OBJECT

public:
    /// A demo has all there is from the start.
    Merge(bool isDemo, Records &records, FieldChanges &changes, const Mutations &mutations, Navigation &navigation,
          UnreadOverrides &unread);

    /// A dashboard was merged in this session.
    [[nodiscard]] bool hasLoaded() const { return m_hasLoaded; }
    /// What of the service's records can't be shown, in words; empty when all can.
    [[nodiscard]] const QString &leftOut() const { return m_leftOut; }
    /// The body that would change nothing if it came again; empty where any one counts.
    [[nodiscard]] QByteArray knownBody() const;

    /// Without a dashboard it is the known one again. Whether quiet hours are on at all is for the caller to say.
    void apply(FetchedDashboard fetched);
    /// Something that the dashboard tells, too, was changed otherwise.
    void forgetBody() { m_body.clear(); }
    /// The session is over.
    void reset();

signals:
    void hasLoadedChanged();
    void leftOutChanged();

private:
    void merge(Dashboard dashboard);
    [[nodiscard]] QString chooseWorkspace(const QList<Workspace> &fresh) const;
    void leaveVanishedTopic();
    void setLeftOut(const QString &text);

    const bool m_isDemo;
    Records &m_records;
    FieldChanges &m_changes;
    const Mutations &m_mutations;
    Navigation &m_navigation;
    UnreadOverrides &m_unread;
    bool m_hasLoaded;
    QString m_leftOut;
    /// The dashboard last merged, and the epoch it was merged in: the same bytes in the same epoch change nothing.
    QByteArray m_body;
    qint64 m_epoch = -1;
};

} // namespace pingwell
