#include "api/topic_dto.h"

namespace pingwell {

TopicDTO TopicDTO::read(WireObject object)
{
    TopicDTO dto;
    dto.id = object.requiredIdentifier("id");
    dto.workspaceId = object.requiredIdentifier("workspaceId");
    dto.name = object.requiredIdentifier("name");
    dto.minPriority = object.string("minPriority");
    dto.quietHours = object.flag("quietHours");
    dto.muted = object.flag("muted");
    dto.responseTimeoutMinutes = object.integer("responseTimeoutMinutes");
    return dto;
}

Topic TopicDTO::mapped(WireStrings &strings) const
{
    Topic topic;
    topic.id = WireStrings::text(id);
    topic.workspaceId = strings.shared(workspaceId);
    topic.name = strings.shared(name);
    topic.minPriority = fromWord<Priority>(minPriority).value_or(Priority::normal);
    topic.quietHours = quietHours.value_or(false);
    topic.muted = muted.value_or(false);
    topic.responseTimeoutMinutes = responseTimeoutMinutes;
    return topic;
}

} // namespace pingwell
