#include "api/settings_dto.h"

namespace pingwell {

SettingsDTO SettingsDTO::read(WireObject object)
{
    SettingsDTO dto;
    dto.quietFrom = object.string("quietFrom");
    dto.quietTo = object.string("quietTo");
    dto.digest = object.flag("digest");
    dto.sound = object.flag("sound");
    return dto;
}

NotificationSettings SettingsDTO::mapped(WireStrings &) const
{
    NotificationSettings settings;
    settings.quietFrom = WireStrings::text(quietFrom).value_or(settings.quietFrom);
    settings.quietTo = WireStrings::text(quietTo).value_or(settings.quietTo);
    settings.digest = digest.value_or(settings.digest);
    settings.sound = sound.value_or(settings.sound);
    return settings;
}

} // namespace pingwell
