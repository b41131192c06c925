#include "waiting_agents.h"

#include "wire.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

QString stateWord(const Alert &alert)
{
    if (alert.kind != AlertKind::ask)
        return u"posted"_s;
    if (alert.answer)
        return u"answered"_s;
    return alert.timedOutAt ? u"timedOut"_s : u"waiting"_s;
}

Reply currentReply(ServiceState &state, const QString &alertId)
{
    try {
        return withData(agentView(state.alert(alertId)));
    } catch (const Refusal &refusal) {
        return refused(refusal);
    }
}

bool isWaiting(const ServiceState &state, const QString &alertId)
{
    return std::any_of(state.alerts.cbegin(), state.alerts.cend(), [&](const ServedAlert &served) {
        return served.alert.id == alertId && stateWord(served.alert) == u"waiting";
    });
}

} // namespace

QJsonObject agentView(const ServedAlert &served)
{
    QJsonObject object = toJson(served);
    object[u"state"_s] = stateWord(served.alert);
    if (served.alert.outcome == u"default")
        object[u"continueWith"_s] = served.alert.actions.value(0);
    return object;
}

WaitingAgents::WaitingAgents(ServiceState &state)
    : m_state(state)
{
}

void WaitingAgents::wait(const QString &alertId, double seconds, const Respond &respond)
{
    if (seconds <= 0 || !isWaiting(m_state, alertId))
        return respond(currentReply(m_state, alertId));
    const int number = ++m_lastNumber;
    m_waiters.append({number, alertId, respond});
    QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(Seconds(seconds)), this,
                       [this, number] { giveUp(number); });
}

void WaitingAgents::answerSettled()
{
    const QList<Waiter> waiters = std::exchange(m_waiters, {});
    for (const Waiter &waiter : waiters) {
        if (isWaiting(m_state, waiter.alertId))
            m_waiters.append(waiter);
        else
            waiter.respond(currentReply(m_state, waiter.alertId));
    }
}

void WaitingAgents::giveUp(int number)
{
    const auto hasNumber = [number](const Waiter &waiter) { return waiter.number == number; };
    const auto position = std::find_if(m_waiters.cbegin(), m_waiters.cend(), hasNumber);
    if (position == m_waiters.cend())
        return;
    const Waiter waiter = m_waiters.takeAt(position - m_waiters.cbegin());
    waiter.respond(currentReply(m_state, waiter.alertId));
}

} // namespace pingwell::devserver
