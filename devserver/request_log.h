#pragma once

#include "call.h"

#include <QJsonArray>
#include <QMap>
#include <QPair>

namespace pingwell::devserver {

/// How often each address was asked for. Counts only: no header and no body is kept.
class RequestLog
{
public:
    void add(const Call &call) { ++m_counts[{call.method, call.path}]; }
    void clear() { m_counts.clear(); }

    [[nodiscard]] QJsonArray described() const
    {
        QJsonArray array;
        for (auto entry = m_counts.cbegin(); entry != m_counts.cend(); ++entry) {
            array.append(QJsonObject{{QStringLiteral("method"), entry.key().first},
                                     {QStringLiteral("path"), entry.key().second},
                                     {QStringLiteral("count"), entry.value()}});
        }
        return array;
    }

private:
    QMap<QPair<QString, QString>, int> m_counts;
};

} // namespace pingwell::devserver
