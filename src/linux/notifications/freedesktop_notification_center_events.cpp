#include "linux/notifications/banner_actions.h"
#include "linux/notifications/freedesktop_notification_center.h"

#include <utility>

namespace pingwell {

namespace {

/// Reasons in NotificationClosed. For any other reason the banner may still be in the server's list.
constexpr uint dismissedByPerson = 2;
constexpr uint closedByCall = 3;

} // namespace

void FreedesktopNotificationCenter::handle(const BannerEvent &event)
{
    Banner *const banner = m_banners.find(event.server, event.number);
    if (!banner) {
        if (m_banners.isAnySending())
            m_early.keep(event);
        return;
    }
    switch (event.kind) {
    case BannerEvent::Kind::action:
        if (const std::optional<QString> identifier = actionIdentifierOf(event.text, banner->offeredKeys))
            respond(*banner, *identifier, std::nullopt);
        break;
    case BannerEvent::Kind::reply:
        if (banner->offeredKeys.contains(inlineReplyKey))
            respond(*banner, replyActionIdentifier, event.text);
        break;
    case BannerEvent::Kind::closed:
        handleClosed(*banner, event.reason);
        break;
    case BannerEvent::Kind::activationToken:
        banner->activationToken = event.text;
        break;
    }
    recordSoon();
}

/// A closed banner is never an answer, whatever the reason: the ask still waits.
void FreedesktopNotificationCenter::handleClosed(Banner &banner, uint reason)
{
    const bool isOver = reason == dismissedByPerson || reason == closedByCall;
    if (isOver)
        m_banners.forgetNumber(banner.requestIdentifier);
    else if (banner.stage == Banner::Stage::shown)
        banner.stage = Banner::Stage::expired;
}

void FreedesktopNotificationCenter::respond(Banner &banner, const QString &actionIdentifier,
                                            const std::optional<QString> &text)
{
    const NotificationResponse response{
        .payload = banner.sent.content.payload,
        .actionIdentifier = actionIdentifier,
        .text = text,
        .activationToken = std::exchange(banner.activationToken, {}),
    };
    // The banner is closed after a response: an ask that stays on the screen would invite a second answer.
    close(banner);
    m_banners.forgetNumber(banner.requestIdentifier);
    // Called last, because the handler may remove the notification or add it again.
    if (m_responseHandler)
        m_responseHandler(response);
}

} // namespace pingwell
