#include "store/change_lane.h"

#include <utility>

namespace pingwell {

void ChangeLane::want(const QString &name, const JSON &shown, const JSON &value)
{
    if (!m_fields.contains(name))
        m_fields.insert(name, {.held = shown, .told = std::nullopt, .waiting = std::nullopt});
    Field &field = m_fields[name];
    if (field.told.value_or(field.held) == value) {
        dropWaiting(name);
        return;
    }
    field.waiting = value;
    if (!m_waiting.contains(name))
        m_waiting << name;
}

JSONObject ChangeLane::begin(bool together)
{
    JSONObject request;
    while (m_told.isEmpty() && !m_waiting.isEmpty() && (together || request.isEmpty())) {
        const QString name = m_waiting.takeFirst();
        Field &field = m_fields[name];
        field.told = std::exchange(field.waiting, std::nullopt);
        if (field.told == field.held)
            field.told.reset();
        else
            request.insert(name, *field.told);
    }
    m_told << request.keys();
    return request;
}

void ChangeLane::accept()
{
    for (const QString &name : std::exchange(m_told, {})) {
        Field &field = m_fields[name];
        field.held = *std::exchange(field.told, std::nullopt);
    }
}

void ChangeLane::refuse()
{
    for (const QString &name : std::exchange(m_told, {}))
        m_fields[name].told.reset();
}

void ChangeLane::learn(const QString &name, const JSON &value)
{
    const auto field = m_fields.find(name);
    if (field != m_fields.end())
        field->held = value;
}

JSON ChangeLane::shown(const QString &name) const
{
    const Field field = m_fields.value(name);
    return field.waiting.value_or(field.told.value_or(field.held));
}

void ChangeLane::dropWaiting(const QString &name)
{
    m_fields[name].waiting.reset();
    m_waiting.removeAll(name);
}

} // namespace pingwell
