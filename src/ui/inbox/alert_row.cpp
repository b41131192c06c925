#include "ui/inbox/alert_row.h"

#include "store/app_store.h"
#include "text/choice_labels.h"
#include "text/display_text.h"

#include <algorithm>
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

} // namespace

AlertSnapshot snapshotOf(Alert alert, const AppStore &store)
{
    const auto state = store.replyState(alert);
    const QString outcome = isTimedOut(state) ? store.outcomeText(alert) : QString();
    const bool canAnswer = store.canAnswer(alert);
    return {std::move(alert), stateWord(state), outcome, canAnswer};
}

qsizetype drawnChoices(const AlertSnapshot &snapshot)
{
    const bool isChosen = snapshot.canAnswer && !snapshot.alert.acceptsText();
    return isChosen ? std::min(snapshot.alert.actions.size(), maximumDrawnChoices) : 0;
}

AlertRow alertRow(const AlertSnapshot &snapshot)
{
    const Alert &alert = snapshot.alert;
    const QString app = displayName(alert.app);

    AlertRow row;
    row.id = alert.id;
    row.app = app.isEmpty() ? QStringLiteral("Agent") : app;
    row.title = titleName(displayLine(alert.title));
    row.summary = displayLine(alert.body);
    row.whole = alertTexts(alert, snapshot.outcome, displayLength);
    row.topic = displayName(alert.topic);
    row.priority = rawValue(alert.priority);
    row.acceptsText = alert.acceptsText();
    row.actions = alert.actions;
    row.actionLabels = choiceLabels(alert.actions).mid(0, maximumDrawnChoices);
    row.furtherChoices = int(alert.furtherChoices);
    row.placeholder = displayLine(alert.placeholder.value_or(QString()));
    row.at = millisecondsFromInstant(alert.at);
    row.expiresAt =
        alert.expiresAt ? millisecondsFromInstant(*alert.expiresAt) : std::numeric_limits<double>::infinity();
    row.read = alert.read;
    row.state = snapshot.state;
    row.answer = answerName(displayName(alert.answer.value_or(QString())), alert);
    row.outcome = displayLine(snapshot.outcome);
    row.canAnswer = snapshot.canAnswer;
    return row;
}

} // namespace pingwell
