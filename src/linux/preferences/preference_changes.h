#pragma once

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace pingwell {

/// What a file of preferences does not have yet.
struct PreferenceChanges
{
    /// Everything else is forgotten.
    bool forgetsRest = false;
    /// By key; an undefined value stands for a removed one.
    QHash<QString, QJsonValue> values = {};

    [[nodiscard]] bool isEmpty() const { return !forgetsRest && values.isEmpty(); }

    /// Adds what was changed after these.
    void add(const PreferenceChanges &later)
    {
        if (later.forgetsRest)
            *this = later;
        else
            values.insert(later.values);
    }

    /// Lays them over `content`.
    [[nodiscard]] QJsonObject over(const QJsonObject &content) const
    {
        QJsonObject result = forgetsRest ? QJsonObject() : content;
        for (auto change = values.cbegin(); change != values.cend(); ++change)
            result.insert(change.key(), change.value());
        return result;
    }
};

} // namespace pingwell
