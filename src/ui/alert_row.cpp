#include "ui/alert_row.h"

#include "store/app_store.h"
#include "ui/display_text.h"

#include <limits>

namespace pingwell {

namespace {

QString stateWord(const std::optional<ReplyState> &state)
{
    if (!state)
        return {};
    if (std::holds_alternative<Waiting>(*state))
        return QStringLiteral("waiting");
    if (std::holds_alternative<Answered>(*state))
        return QStringLiteral("answered");
    return QStringLiteral("timedOut");
}

/// `text`, or a stand-in where nothing of it can be seen.
QString visible(const QString &text, const QString &otherwise)
{
    return text.isEmpty() ? otherwise : text;
}

QStringList labelsOf(const QStringList &actions)
{
    QStringList labels;
    labels.reserve(actions.size());
    for (const QString &action : actions)
        labels.append(visible(displayLine(action), QStringLiteral("(no text)")));
    return labels;
}

} // namespace

AlertSnapshot snapshotOf(Alert alert, const AppStore &store)
{
    const auto state = store.replyState(alert);
    const QString outcome = isTimedOut(state) ? store.outcomeText(alert) : QString();
    const bool canAnswer = store.canAnswer(alert);
    return {std::move(alert), stateWord(state), outcome, canAnswer};
}

AlertRow alertRow(const AlertSnapshot &snapshot)
{
    const Alert &alert = snapshot.alert;
    const DisplayText body = displayText(alert.body);

    AlertRow row;
    row.id = alert.id;
    row.app = visible(displayName(alert.app), QStringLiteral("Agent"));
    row.title = visible(displayLine(alert.title), QStringLiteral("(no title)"));
    row.body = body.text;
    row.bodyIsCut = body.isCut;
    row.summary = displayLine(alert.body);
    row.topic = displayName(alert.topic);
    row.priority = rawValue(alert.priority);
    row.acceptsText = alert.acceptsText();
    row.actions = alert.actions;
    row.actionLabels = labelsOf(alert.actions);
    row.placeholder = displayLine(alert.placeholder.value_or(QString()));
    row.at = millisecondsFromInstant(alert.at);
    row.expiresAt =
        alert.expiresAt ? millisecondsFromInstant(*alert.expiresAt) : std::numeric_limits<double>::infinity();
    row.read = alert.read;
    row.state = snapshot.state;
    row.answer = displayName(alert.answer.value_or(QString()));
    row.outcome = displayLine(snapshot.outcome);
    row.canAnswer = snapshot.canAnswer;
    return row;
}

} // namespace pingwell
