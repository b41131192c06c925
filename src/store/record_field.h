#pragma once

#include "api/api_client.h"
#include "api/json.h"
#include "model/instant.h"
#include "model/member.h"
#include "model/notification_settings.h"
#include "model/raw_value.h"
#include "model/topic.h"
#include "model/workspace.h"
#include "store/consent.h"
#include "store/record_list.h"

#include <QCoroTask>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>
#include <optional>
#include <type_traits>

namespace pingwell {

class Records;

/// The records whose fields the person changes: the store's own, or those of a dashboard about to be merged.
struct ChangeableRecords
{
    QList<Workspace> &workspaces;
    QMap<QString, QList<Member>> &members;
    QList<Topic> &topics;
    NotificationSettings &settings;
};

/// One field of one record: where it is found, what has to be announced when it changes, and how the service is told.
/// Whether a record is there at all is a field, too.
struct RecordField
{
    /// Different for each field of a thing; the service's own name where it has one.
    QString name = {};
    /// None where the record is gone.
    std::function<std::optional<JSON>(const ChangeableRecords &)> read = {};
    std::function<void(const ChangeableRecords &, const JSON &)> write = {};
    void (Records::*changed)() = nullptr;
    /// Given the fields by name, with the values to hold.
    std::function<QCoro::Task<Outcome<Consent>>(APIClientPtr, JSONObject)> tell = {};
};

/// A field, and what the person wants it to be.
struct FieldChange
{
    RecordField field;
    JSON value;
};

/// The name of the field that says whether the record is there; before all others in the order of names.
inline const QString existenceField = QString();

/// A field's value as the service writes it.
template<typename Value>
JSON wireValue(const Value &value)
{
    if constexpr (std::is_enum_v<Value>)
        return JSON(QString(rawValue(value)));
    else
        return JSON(value);
}

inline JSON wireValue(const std::optional<Instant> &value)
{
    return value ? JSON(static_cast<qint64>(millisecondsFromInstant(*value))) : JSON(nullptr);
}

/// Takes a value that `wireValue` made.
template<typename Value>
void takeWireValue(Value &field, const JSON &value)
{
    if constexpr (std::is_enum_v<Value>) {
        if (const auto *const word = value.as<QString>())
            field = fromRawValue<Value>(*word).value_or(field);
    } else if (const auto *const held = value.as<Value>()) {
        field = *held;
    }
}

inline void takeWireValue(std::optional<Instant> &field, const JSON &value)
{
    const auto *const milliseconds = value.as<std::int64_t>();
    field = milliseconds ? std::optional(instantFromMilliseconds(double(*milliseconds))) : std::nullopt;
}

/// Makes `field` the `member` of the record that `find` finds among records, or null.
template<typename Find, typename Record, typename Value>
void bindField(RecordField &field, Find find, Value Record::*member)
{
    field.read = [find, member](const ChangeableRecords &records) -> std::optional<JSON> {
        const Record *const record = find(records);
        return record ? std::optional(wireValue(record->*member)) : std::nullopt;
    };
    field.write = [find, member](const ChangeableRecords &records, const JSON &value) {
        if (Record *const record = find(records))
            takeWireValue(record->*member, value);
    };
}

/// Makes `field` say whether the record is there, in the list that `find` finds among records, or null.
template<typename Find, typename Record>
void bindExistence(RecordField &field, Find find, const Removed<Record> &removed)
{
    field.name = existenceField;
    field.read = [find, key = keyOf(removed.record)](const ChangeableRecords &records) {
        const QList<Record> *const list = find(records);
        return std::optional<JSON>(list && placeOf(key, *list) >= 0);
    };
    field.write = [find, removed](const ChangeableRecords &records, const JSON &exists) {
        QList<Record> *const list = find(records);
        if (!list)
            return;
        if (exists == JSON(true))
            putBackInto(*list, removed);
        else
            removeFrom(*list, keyOf(removed.record));
    };
}

} // namespace pingwell
