#pragma once

#include "api/json.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The changes of one thing (a topic, a member), which the service is told one request after the other, so that what
/// the person changed last is what it hears last. Bookkeeping alone: whoever owns it sends the requests. Of each
/// changed field it knows what the service holds, what it is being told, and what waits to be told. What waits is one
/// value, the latest; what is shown is what the person wants as long as the service may still take it, else what it
/// holds, and never a value that was refused.
class ChangeLane
{
public:
    /// The person changes the field to `value`; `shown` is what was shown before.
    void want(const QString &field, const JSON &shown, const JSON &value);

    /// What the next request has to say: the first field that waits, or with `together` all of them. Nothing while a
    /// request is under way, or when nothing waits that the service doesn't hold anyway.
    [[nodiscard]] JSONObject begin(bool together);
    /// The service took the request under way.
    void accept();
    /// It didn't, or nobody knows.
    void refuse();
    /// The service is seen to hold that value.
    void learn(const QString &field, const JSON &value);

    /// What is shown of a field that was changed.
    [[nodiscard]] JSON shown(const QString &field) const;

private:
    struct Field
    {
        JSON held = nullptr;
        std::optional<JSON> told;
        std::optional<JSON> waiting;
    };

    void dropWaiting(const QString &field);

    QHash<QString, Field> m_fields;
    /// The fields of the request under way.
    QStringList m_told;
    /// The fields that wait, in the order of their first change.
    QStringList m_waiting;
};

} // namespace pingwell
