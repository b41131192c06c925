#include "api/alert_dto.h"

namespace pingwell {

AlertDTO AlertDTO::read(WireObject object)
{
    AlertDTO dto;
    dto.id = object.requiredIdentifier("id");
    dto.workspaceId = object.requiredIdentifier("workspaceId");
    dto.app = object.string("app");
    dto.title = object.requiredString("title");
    dto.body = object.string("body");
    dto.topic = object.string("topic");
    dto.priority = object.string("priority");
    dto.kind = object.string("kind");
    dto.actions = object.texts("actions");
    dto.answerType = object.string("answerType");
    dto.placeholder = object.string("placeholder");
    dto.delivered = object.flag("delivered");
    dto.at = object.requiredInstant("at");
    dto.expiresAt = object.instant("expiresAt");
    dto.answer = object.string("answer");
    dto.timedOutAt = object.instant("timedOutAt");
    dto.outcome = object.string("outcome");
    dto.isRead = object.flag("read");
    return dto;
}

Alert AlertDTO::mapped(WireStrings &strings) const
{
    Alert alert;
    alert.id = WireStrings::text(id);
    alert.workspaceId = strings.shared(workspaceId);
    alert.app = strings.shared(app.value_or("Agent"));
    alert.title = WireStrings::text(title);
    alert.body = WireStrings::text(body.value_or(""));
    alert.topic = strings.shared(topic.value_or("general"));
    alert.priority = fromWord<Priority>(priority).value_or(Priority::normal);
    alert.kind = fromWord<AlertKind>(kind).value_or(AlertKind::notify);
    if (actions) {
        alert.actions = strings.sharedList(*actions, maximumKeptChoices);
        actions->forEach([&alert](std::string_view) { ++alert.furtherChoices; });
        alert.furtherChoices -= alert.actions.size();
    }
    alert.answerType = fromWord<AnswerType>(answerType).value_or(AnswerType::choice);
    if (placeholder && !placeholder->empty())
        alert.placeholder = strings.shared(*placeholder);
    alert.answer = strings.shared(answer);
    alert.at = at;
    alert.read = isRead.value_or(false);
    alert.expiresAt = expiresAt;
    alert.delivered = delivered.value_or(true);
    alert.timedOutAt = timedOutAt;
    alert.outcome = strings.shared(outcome);
    return alert;
}

} // namespace pingwell
