#pragma once

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace pingwell {

/// Changes of preferences that are not in their file yet.
struct PreferenceChanges
{
    /// Whether every key that is not in `values` is removed.
    bool forgetsRest = false;
    /// The changed values by key; an undefined value removes the key.
    QHash<QString, QJsonValue> values = {};

    [[nodiscard]] bool isEmpty() const { return !forgetsRest && values.isEmpty(); }

    /// Adds changes that were made after these.
    void add(const PreferenceChanges &later)
    {
        if (later.forgetsRest)
            *this = later;
        else
            values.insert(later.values);
    }

    /// Applies the changes to `content`.
    [[nodiscard]] QJsonObject over(const QJsonObject &content) const
    {
        QJsonObject result = forgetsRest ? QJsonObject() : content;
        for (auto change = values.cbegin(); change != values.cend(); ++change)
            result.insert(change.key(), change.value());
        return result;
    }
};

} // namespace pingwell
