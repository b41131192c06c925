#include "store/records.h"

#include "store/record_field.h"

namespace pingwell {

Records::Records(const SeedData &seed)
    : m_held(Held<Alert>{seed.alerts, &Records::alertsChanged}, Held<Topic>{seed.topics, &Records::topicsChanged},
             Held<Device>{seed.devices, &Records::devicesChanged},
             Held<Workspace>{seed.workspaces, &Records::workspacesChanged},
             Held<Invitation>{{}, &Records::invitationsChanged})
    , m_members(seed.members)
    , m_settings(seed.settings)
{
}

void Records::setMembers(const QString &workspaceID, const QList<Member> &members)
{
    QMap<QString, QList<Member>> all = m_members;
    all.insert(workspaceID, members);
    setAllMembers(all);
}

void Records::setAllMembers(const QMap<QString, QList<Member>> &members)
{
    if (m_members == members)
        return;
    m_members = members;
    emit membersChanged();
}

void Records::forgetAllOf(const QString &workspaceID)
{
    const auto belongs = [&workspaceID](const auto &record) { return record.workspaceId == workspaceID; };
    QMap<QString, QList<Member>> members = m_members;
    members.remove(workspaceID);
    QList<Topic> topics = all<Topic>();
    topics.removeIf(belongs);
    QList<Alert> alerts = all<Alert>();
    alerts.removeIf(belongs);
    setAllMembers(members);
    set(topics);
    set(alerts);
}

void Records::setSettings(const NotificationSettings &settings)
{
    if (m_settings == settings)
        return;
    m_settings = settings;
    emit settingsChanged();
}

std::optional<JSON> Records::read(const RecordField &field)
{
    return field.read(
        {std::get<Held<Workspace>>(m_held).list, m_members, std::get<Held<Topic>>(m_held).list, m_settings});
}

void Records::write(const RecordField &field, const JSON &value)
{
    const auto shown = read(field);
    if (!shown || *shown == value)
        return;
    field.write({std::get<Held<Workspace>>(m_held).list, m_members, std::get<Held<Topic>>(m_held).list, m_settings},
                value);
    if (field.changed)
        emit(this->*field.changed)();
}

void Records::take(Dashboard &dashboard, Announcements &announcements)
{
    const auto put = [this, &announcements](auto &held, auto &fresh) {
        announcements.put(this, held.list, fresh, held.changed);
    };
    put(std::get<Held<Workspace>>(m_held), dashboard.workspaces);
    announcements.put(this, m_members, dashboard.members, &Records::membersChanged);
    put(std::get<Held<Topic>>(m_held), dashboard.topics);
    put(std::get<Held<Device>>(m_held), dashboard.devices);
    announcements.put(this, m_settings, dashboard.settings, &Records::settingsChanged);
    put(std::get<Held<Alert>>(m_held), dashboard.alerts);
}

void Records::reset(const SeedData &seed)
{
    set(seed.alerts);
    set(seed.topics);
    set(seed.devices);
    setSettings(seed.settings);
    set(seed.workspaces);
    setAllMembers(seed.members);
    set(QList<Invitation>());
}

} // namespace pingwell
