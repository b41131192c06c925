#include "linux/notifications/banner_actions.h"
#include "linux/notifications/freedesktop_notification_center.h"

#include <utility>

namespace pingwell {

namespace {

/// Reasons of NotificationClosed. Only these two end a banner for good.
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

/// That a banner is gone is never an answer, whatever the reason; the question still waits.
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
    // A response uses the banner up: a question that stays on the screen would invite a second answer.
    close(banner);
    m_banners.forgetNumber(banner.requestIdentifier);
    // Last: what the response leads to may well take the banner back, or show it anew.
    if (m_responseHandler)
        m_responseHandler(response);
}

} // namespace pingwell
