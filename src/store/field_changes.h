#pragma once

#include "store/mutations.h"
#include "store/record_field.h"
#include "store/records.h"

#include <QHash>

#include <memory>

namespace pingwell {

/// Changes of single fields, told the service for each thing in a lane of its own, one request after the other, so
/// that what the person changed last is what it hears last; until then what they want is shown. Main thread.
class FieldChanges
{
public:
    FieldChanges(Records &records, Mutations &mutations);

    /// Changes fields of the thing that `name` names: in the order of the changes, and with `together` all that waits
    /// in one request.
    void change(const QString &name, const QList<FieldChange> &changes, bool together = false);
    /// Puts the changes that the service may still take over what it holds.
    void applyTo(Dashboard &dashboard);
    /// Forgets what waits: the session is over.
    void reset() { m_lanes.clear(); }

private:
    struct Lane;

    /// Sends the next request, or forgets a lane that has none.
    void tellNext(const QString &name, bool isFirst);
    /// Shows of every field what the lane says.
    void showAll(const Lane &lane);

    Records &m_records;
    Mutations &m_mutations;
    /// The things whose changes are being told, by name.
    QHash<QString, std::shared_ptr<Lane>> m_lanes;
};

} // namespace pingwell
