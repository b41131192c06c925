#pragma once

#include "api/dashboard.h"
#include "model/invitation.h"
#include "store/announcements.h"
#include "store/record_list.h"
#include "store/seed_data.h"

#include <QObject>

#include <optional>
#include <tuple>

namespace pingwell {

struct RecordField;
class JSON;

/// What the service holds of the person, as far as it is known here, with what they changed since. Every kind of
/// record is found, replaced, added, removed and put back in one way: whole or not at all, and a real change is
/// announced once it is in place. Main thread.
class Records : public QObject
{
    Q_OBJECT

public:
    /// Begins with `seed`, unannounced.
    explicit Records(const SeedData &seed);

    /// All of a kind: `Alert`, `Topic`, `Device`, `Workspace` or `Invitation`.
    template<typename Record>
    [[nodiscard]] const QList<Record> &all() const
    {
        return std::get<Held<Record>>(m_held).list;
    }
    template<typename Record>
    [[nodiscard]] std::optional<Record> find(const QString &key) const
    {
        const qsizetype place = placeOf(key, all<Record>());
        return place < 0 ? std::nullopt : std::optional(all<Record>().at(place));
    }
    template<typename Record>
    void set(QList<Record> records)
    {
        Held<Record> &held = std::get<Held<Record>>(m_held);
        if (held.list == records)
            return;
        held.list = std::move(records);
        emit(this->*held.changed)();
    }
    /// Takes the place of the record of the same key; without one nothing happens.
    template<typename Record>
    void replace(const Record &record)
    {
        const qsizetype place = placeOf(keyOf(record), all<Record>());
        if (place < 0 || all<Record>().at(place) == record)
            return;
        Held<Record> &held = std::get<Held<Record>>(m_held);
        held.list[place] = record;
        emit(this->*held.changed)();
    }
    /// Adds it at the end, unless one of its key is there.
    template<typename Record>
    void add(const Record &record)
    {
        putBack(Removed<Record>{record, all<Record>().size()});
    }
    template<typename Record>
    std::optional<Removed<Record>> remove(const QString &key)
    {
        QList<Record> left = all<Record>();
        const auto removed = removeFrom(left, key);
        set(left);
        return removed;
    }
    /// Where it stood, unless one of its key is there by now.
    template<typename Record>
    void putBack(const Removed<Record> &removed)
    {
        QList<Record> records = all<Record>();
        putBackInto(records, removed);
        set(records);
    }

    /// By workspace id.
    [[nodiscard]] const QMap<QString, QList<Member>> &members() const { return m_members; }
    void setMembers(const QString &workspaceID, const QList<Member> &members);
    /// Forgets the members, topics and alerts of a workspace.
    void forgetAllOf(const QString &workspaceID);

    [[nodiscard]] const NotificationSettings &settings() const { return m_settings; }
    void setSettings(const NotificationSettings &settings);

    /// The value of the field; none where its record is gone.
    [[nodiscard]] std::optional<JSON> read(const RecordField &field);
    /// A record that is gone stays so.
    void write(const RecordField &field, const JSON &value);

    /// Takes what the service holds by now and leaves the old records in its place.
    void take(Dashboard &dashboard, Announcements &announcements);
    /// Holds what `seed` says and no invitations.
    void reset(const SeedData &seed);

signals:
    void alertsChanged();
    void topicsChanged();
    void devicesChanged();
    void settingsChanged();
    void workspacesChanged();
    void membersChanged();
    void invitationsChanged();

private:
    template<typename Record>
    struct Held
    {
        QList<Record> list;
        void (Records::*changed)();
    };

    void setAllMembers(const QMap<QString, QList<Member>> &members);

    std::tuple<Held<Alert>, Held<Topic>, Held<Device>, Held<Workspace>, Held<Invitation>> m_held;
    QMap<QString, QList<Member>> m_members;
    NotificationSettings m_settings;
};

} // namespace pingwell
