#include "store/field_changes.h"

#include "store/change_lane.h"

namespace pingwell {

/// One thing whose changes are being told, with the places of the fields in question.
struct FieldChanges::Lane
{
    ChangeLane changes;
    QMap<QString, RecordField> fields;
    bool together = false;
};

FieldChanges::FieldChanges(Records &records, Mutations &mutations)
    : m_records(records)
    , m_mutations(mutations)
{
}

void FieldChanges::change(const QString &name, const QList<FieldChange> &changes, bool together)
{
    std::shared_ptr<Lane> lane = m_lanes.value(name);
    const bool isFirst = !lane;
    if (isFirst)
        lane = std::make_shared<Lane>();
    lane->together = together;
    for (const auto &[field, value] : changes) {
        const auto shown = m_records.read(field);
        if (!shown || *shown == value)
            continue;
        lane->fields.insert(field.name, field);
        lane->changes.want(field.name, *shown, value);
        m_records.write(field, value);
    }
    if (!m_mutations.canTell() || !isFirst)
        return;
    m_lanes.insert(name, lane);
    tellNext(name, isFirst);
}

void FieldChanges::showAll(const Lane &lane)
{
    for (const RecordField &field : lane.fields)
        m_records.write(field, lane.changes.shown(field.name));
}

void FieldChanges::tellNext(const QString &name, bool isFirst)
{
    const std::shared_ptr<Lane> lane = m_lanes.value(name);
    const JSONObject request = lane->changes.begin(lane->together);
    if (request.isEmpty()) {
        m_lanes.remove(name);
        return;
    }
    m_mutations.start({.operation = [tell = lane->fields.value(request.firstKey()).tell,
                                     request](APIClientPtr client) { return tell(client, request); },
                       .rollback =
                           [this, lane] {
                               lane->changes.refuse();
                               showAll(*lane);
                           },
                       .ended =
                           [this, lane, name](bool accepted) {
                               if (accepted)
                                   lane->changes.accept();
                               tellNext(name, false);
                           },
                       // Dashboards are merged while a later one is under way: what the person wants lies over them.
                       .holdsMerge = isFirst});
}

void FieldChanges::applyTo(Dashboard &dashboard)
{
    const ChangeableRecords fresh{.workspaces = dashboard.workspaces,
                                  .members = dashboard.members,
                                  .topics = dashboard.topics,
                                  .settings = dashboard.settings};
    for (const auto &lane : std::as_const(m_lanes)) {
        for (const RecordField &field : std::as_const(lane->fields)) {
            const auto held = field.read(fresh);
            if (!held)
                continue;
            lane->changes.learn(field.name, *held);
            const JSON shown = lane->changes.shown(field.name);
            if (*held != shown)
                field.write(fresh, shown);
        }
    }
}

} // namespace pingwell
