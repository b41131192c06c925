#pragma once

#include "call.h"

#include <QJsonArray>
#include <QMap>
#include <QPair>

namespace pingwell::devserver {

/// How often each address was asked for, how often with a session's token, and how often the asker's connection was
/// cut. Counts only: no header and no body is kept.
class RequestLog
{
public:
    void add(const Call &call)
    {
        Entry &entry = m_entries[{call.method, call.path}];
        ++entry.count;
        entry.bearing += call.bearer.isEmpty() ? 0 : 1;
    }
    /// Notes that the connection of a request already added was cut.
    void addCut(const Call &call) { ++m_entries[{call.method, call.path}].cut; }
    void clear() { m_entries.clear(); }

    [[nodiscard]] QJsonArray described() const
    {
        QJsonArray array;
        for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
            array.append(QJsonObject{{QStringLiteral("method"), entry.key().first},
                                     {QStringLiteral("path"), entry.key().second},
                                     {QStringLiteral("count"), entry->count},
                                     {QStringLiteral("bearing"), entry->bearing},
                                     {QStringLiteral("cut"), entry->cut}});
        }
        return array;
    }

private:
    struct Entry
    {
        int count = 0;
        int bearing = 0;
        int cut = 0;
    };

    QMap<QPair<QString, QString>, Entry> m_entries;
};

} // namespace pingwell::devserver
