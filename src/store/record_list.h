#pragma once

#include "model/invitation.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <optional>

namespace pingwell {

/// What a record is told by from all others of its kind.
template<typename Record>
const QString &keyOf(const Record &record)
{
    return record.id;
}

inline const QString &keyOf(const Invitation &invitation)
{
    return invitation.token;
}

/// A record that was taken out of a list, and where it stood.
template<typename Record>
struct Removed
{
    Record record;
    qsizetype place = 0;
};

/// Where the record of that key stands; -1 where there is none.
template<typename Record>
qsizetype placeOf(const QString &key, const QList<Record> &records)
{
    const auto found =
        std::find_if(records.cbegin(), records.cend(), [&key](const Record &record) { return keyOf(record) == key; });
    return found == records.cend() ? -1 : found - records.cbegin();
}

/// The record of that key in a list that may be changed, or null.
template<typename Record>
Record *findIn(QList<Record> &records, const QString &key)
{
    const qsizetype place = placeOf(key, records);
    return place < 0 ? nullptr : &records[place];
}

template<typename Record>
std::optional<Removed<Record>> removeFrom(QList<Record> &records, const QString &key)
{
    const qsizetype place = placeOf(key, records);
    if (place < 0)
        return std::nullopt;
    return Removed<Record>{records.takeAt(place), place};
}

/// Puts a record back whole, where it stood as far as the list still reaches; or not at all, where one of its key is
/// there by now.
template<typename Record>
void putBackInto(QList<Record> &records, const Removed<Record> &removed)
{
    if (placeOf(keyOf(removed.record), records) < 0)
        records.insert(std::min(removed.place, records.size()), removed.record);
}

} // namespace pingwell
