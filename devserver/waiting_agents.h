#pragma once

#include "reply.h"
#include "service_state.h"

#include <QJsonObject>
#include <QList>
#include <QObject>

namespace pingwell::devserver {

/// The agents that wait for an answer with their request held open.
class WaitingAgents : public QObject
{
public:
    explicit WaitingAgents(ServiceState &state);

    /// Answers when the ask is settled or gone, and after `seconds` in any case.
    void wait(const QString &alertId, double seconds, const Respond &respond);
    /// Answers everyone whose ask waits no longer; called whenever something may have changed.
    void answerSettled();

private:
    struct Waiter
    {
        int number = 0;
        QString alertId;
        Respond respond;
    };

    void giveUp(int number);

    ServiceState &m_state;
    QList<Waiter> m_waiters;
    int m_lastNumber = 0;
};

/// What an agent is told of its alert: "state" is "waiting", "answered", "timedOut" or, for a notice, "posted".
[[nodiscard]] QJsonObject agentView(const ServedAlert &served);

} // namespace pingwell::devserver
