#include "store/app_store.h"

#include "store/change_lane.h"
#include "store/mutation_steps.h"
#include "store/record_field.h"

namespace pingwell {

/// One thing whose changes are being told, with the places of the fields in question.
struct AppStore::Lane
{
    ChangeLane changes;
    QMap<QString, RecordField> fields;
    bool together = false;
};

/// How the changes of one thing run.
struct AppStore::LaneSteps
{
    static void show(AppStore &store, const RecordField &field, const JSON &value);
    /// Shows of every field what the lane says.
    static void showAll(AppStore &store, const Lane &lane);
    /// Sends the next request, or forgets a lane that has none.
    static void tellNext(AppStore &store, const QString &name, bool isFirst);
};

Records AppStore::records()
{
    return {.workspaces = m_workspaces, .members = m_members, .topics = m_topics, .settings = m_settings};
}

void AppStore::changeFields(const QString &name, const QList<FieldChange> &changes, bool together)
{
    checkMainThread();
    std::shared_ptr<Lane> lane = m_lanes.value(name);
    const bool isFirst = !lane;
    if (isFirst)
        lane = std::make_shared<Lane>();
    lane->together = together;
    for (const auto &[field, value] : changes) {
        const auto shown = field.read(records());
        if (!shown || *shown == value)
            continue;
        lane->fields.insert(field.name, field);
        lane->changes.want(field.name, *shown, value);
        LaneSteps::show(*this, field, value);
    }
    if (!m_client || !isFirst)
        return;
    m_lanes.insert(name, lane);
    LaneSteps::tellNext(*this, name, isFirst);
}

void AppStore::LaneSteps::show(AppStore &store, const RecordField &field, const JSON &value)
{
    const auto shown = field.read(store.records());
    if (!shown || *shown == value)
        return;
    field.write(store.records(), value);
    if (field.changed)
        emit(store.*field.changed)();
}

void AppStore::LaneSteps::showAll(AppStore &store, const Lane &lane)
{
    for (const RecordField &field : lane.fields)
        show(store, field, lane.changes.shown(field.name));
}

void AppStore::LaneSteps::tellNext(AppStore &store, const QString &name, bool isFirst)
{
    const std::shared_ptr<Lane> lane = store.m_lanes.value(name);
    const JSONObject request = lane->changes.begin(lane->together);
    if (request.isEmpty()) {
        store.m_lanes.remove(name);
        return;
    }
    MutationSteps::start(store,
                         {.operation = [tell = lane->fields.value(request.firstKey()).tell,
                                        request](APIClientPtr client) { return tell(client, request); },
                          .rollback =
                              [lane](AppStore &owner) {
                                  lane->changes.refuse();
                                  showAll(owner, *lane);
                              },
                          .ended =
                              [lane, name](AppStore &owner, bool accepted) {
                                  if (accepted)
                                      lane->changes.accept();
                                  tellNext(owner, name, false);
                              },
                          // Dashboards are merged while a later one is under way: what the person wants lies over them.
                          .holdsMerge = isFirst});
}

void AppStore::applyChangesTo(Dashboard &dashboard)
{
    const Records fresh{.workspaces = dashboard.workspaces,
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
