#include "store/merge.h"

#include "async/background.h"
#include "store/left_out_text.h"

#include <algorithm>
#include <utility>

namespace pingwell {

Merge::Merge(bool isDemo, Records &records, FieldChanges &changes, const Mutations &mutations, Navigation &navigation,
             UnreadOverrides &unread)
    : m_isDemo(isDemo)
    , m_records(records)
    , m_changes(changes)
    , m_mutations(mutations)
    , m_navigation(navigation)
    , m_unread(unread)
    , m_hasLoaded(isDemo)
{
}

QByteArray Merge::knownBody() const
{
    return m_hasLoaded && m_epoch == m_mutations.epoch() ? m_body : QByteArray();
}

void Merge::apply(FetchedDashboard fetched)
{
    if (!fetched.dashboard) {
        // At the first dashboard of a run it was not known yet what had vanished.
        m_unread.keepOnly(m_records.all<Alert>());
        return;
    }
    merge(std::move(*fetched.dashboard));
    m_body = std::move(fetched.body);
    m_epoch = m_mutations.epoch();
}

void Merge::merge(Dashboard dashboard)
{
    m_changes.applyTo(dashboard);
    // Before the first dashboard of a run nothing is known that could have vanished.
    if (m_hasLoaded)
        m_unread.keepOnly(dashboard.alerts);
    m_unread.applyTo(dashboard.alerts);
    const QString active = chooseWorkspace(dashboard.workspaces);
    const bool moves = active != m_navigation.activeWorkspaceID();
    const QString leftOut = leftOutText(dashboard.counts);
    bool loaded = true;

    Announcements announcements;
    m_navigation.showWorkspace(active, announcements);
    m_records.take(dashboard, announcements);
    announcements.put(this, m_hasLoaded, loaded, &Merge::hasLoadedChanged);
    announcements.make();
    if (moves)
        m_navigation.clearSelectionAndFilter();
    leaveVanishedTopic();
    setLeftOut(leftOut);
    destroyInBackground(std::move(dashboard.alerts));
}

/// A filter that no chip stands for would show an empty inbox and no way to see why.
void Merge::leaveVanishedTopic()
{
    const InboxFilter &filter = m_navigation.filter();
    if (filter.kind() != InboxFilter::Kind::topic)
        return;
    const QList<Topic> &topics = m_records.all<Topic>();
    const bool isThere = std::any_of(topics.begin(), topics.end(), [&](const Topic &topic) {
        return topic.workspaceId == m_navigation.activeWorkspaceID() && topic.name == filter.topicName();
    });
    if (!isThere)
        m_navigation.setFilter(InboxFilter::all());
}

QString Merge::chooseWorkspace(const QList<Workspace> &fresh) const
{
    if (placeOf(m_navigation.activeWorkspaceID(), fresh) >= 0)
        return m_navigation.activeWorkspaceID();
    const auto remembered = m_navigation.rememberedWorkspaceID();
    if (remembered && placeOf(*remembered, fresh) >= 0)
        return *remembered;
    return fresh.isEmpty() ? QString() : fresh.first().id;
}

void Merge::setLeftOut(const QString &text)
{
    if (std::exchange(m_leftOut, text) != text)
        emit leftOutChanged();
}

void Merge::reset()
{
    m_body.clear();
    setLeftOut(QString());
    if (std::exchange(m_hasLoaded, m_isDemo) != m_isDemo)
        emit hasLoadedChanged();
}

} // namespace pingwell
