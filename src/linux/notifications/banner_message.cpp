#include "linux/notifications/banner_message.h"

#include "linux/notifications/banner_actions.h"
#include "model/identity.h"
#include "text/display_text.h"

#include <QVariantMap>

namespace pingwell {

namespace {

const QString desktopEntry = programID;
constexpr qsizetype longestSummary = 120;
constexpr qsizetype longestBody = 400;
constexpr uchar normalUrgency = 1;
constexpr uchar criticalUrgency = 2;
/// -1: the server decides how long the banner stays. 0: it stays until the person closes it.
constexpr int serversTimeout = -1;
constexpr int noTimeout = 0;

QVariantMap hintsOf(const NotificationContent &content, const QList<NotificationAction> &actions,
                    const NotificationServer &server)
{
    QVariantMap hints{
        {QStringLiteral("desktop-entry"), desktopEntry},
        {QStringLiteral("category"), QStringLiteral("im.received")},
        {QStringLiteral("urgency"), QVariant::fromValue(content.timeSensitive ? criticalUrgency : normalUrgency)},
    };
    if (content.sound)
        hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    else
        hints.insert(QStringLiteral("suppress-sound"), true);
    // An ask keeps its buttons until it is answered, as far as the server allows that.
    if (content.category)
        hints.insert(QStringLiteral("resident"), true);
    if (const std::optional<NotificationTextInput> field = replyFieldFor(actions, server)) {
        hints.insert(QStringLiteral("x-kde-reply-placeholder-text"), displayLine(field->placeholder));
        hints.insert(QStringLiteral("x-kde-reply-submit-button-text"), field->buttonTitle);
    }
    return hints;
}

QString bannerSummary(const NotificationContent &content)
{
    const QString title = displayLine(content.title, longestSummary);
    return title.isEmpty() ? QStringLiteral("Pingwell") : title;
}

} // namespace

QString bannerBody(const NotificationContent &content, const NotificationServer &server)
{
    QStringList lines{displayLine(content.subtitle, longestSummary),
                      displayText(content.body, longestBody).text.trimmed()};
    lines.removeAll(QString());
    const QString body = lines.join(u'\n');
    return server.readsMarkup ? body.toHtmlEscaped() : body;
}

QString bannerWords(const NotificationContent &content, const NotificationServer &server)
{
    return bannerSummary(content) + u'\n' + bannerBody(content, server);
}

QDBusMessage showBannerCall(const NotificationContent &content, const QList<NotificationAction> &actions,
                            const NotificationServer &server, uint replaced, int copy)
{
    QString body = bannerBody(content, server);
    if (copy > 1)
        body += QStringLiteral("\nAnother question in the same words (%1)").arg(copy);
    QStringList pairs;
    for (const BannerAction &action : fitActions(actions, server))
        pairs << action.key << action.label;
    QDBusMessage call = notificationCall(QStringLiteral("Notify"), server.owner);
    // The application name, for servers that ignore the desktop-entry hint.
    call << QStringLiteral("Pingwell") << replaced << desktopEntry << bannerSummary(content) << body << pairs
         << hintsOf(content, actions, server) << (content.timeSensitive ? noTimeout : serversTimeout);
    return call;
}

} // namespace pingwell
