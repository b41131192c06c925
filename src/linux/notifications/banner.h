#pragma once

#include "desktop/notification_content.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// What the program knows about one banner: a notification it showed or is about to show.
struct Banner
{
    /// The state of the banner, as far as the server has reported it.
    enum class Stage {
        shown,
        /// No longer on the screen; some servers keep it in a list, where it can still be clicked.
        expired,
        /// Closed by the program. Until the server confirms that, it may still report what the person pressed just
        /// before.
        closed
    };

    QString requestIdentifier;
    /// The notification that was sent last.
    NotificationRequest sent;
    /// The server that the notification was sent to, and the banner's number there; 0 until the server has named one.
    QString server;
    uint number = 0;
    Stage stage = Stage::shown;
    /// The keys of all actions that the server ever got for this number; it may report others.
    QStringList offeredKeys;
    /// The notification offers actions, so that a press may be an answer.
    bool takesAnswers = false;
    /// The banner's text, and its place among the asks with the same text: 1 for the first, 2 for the second and so on.
    QString words;
    int copy = 1;
    /// Lets the next response bring a window to the front.
    QString activationToken;
    /// The server has not yet replied with the number of the notification that was sent last.
    bool isSending = false;
    /// The banner has to be closed as soon as its number is known.
    bool isWithdrawn = false;
    /// The notification to send next.
    std::optional<NotificationRequest> next;
};

/// The banners of this run, oldest first. A server's number belongs to one banner at most.
class BannerList
{
public:
    /// When the list is full, removes one banner and returns it, so that the caller can close it. Closed banners go
    /// first, then notices, then asks; among these the ones no longer on the screen go first, then the oldest. A banner
    /// whose number is not known yet is never removed.
    [[nodiscard]] std::optional<Banner> makeRoom();
    /// The banner of that request; created if there is none.
    Banner &obtain(const QString &requestIdentifier);
    [[nodiscard]] Banner *find(const QString &requestIdentifier);
    [[nodiscard]] Banner *find(const QString &server, uint number);
    /// The oldest banner that has a notification to send and is not waiting for a reply.
    [[nodiscard]] Banner *nextToSend();
    [[nodiscard]] bool isAnySending() const;
    [[nodiscard]] QStringList requestIdentifiers() const;
    [[nodiscard]] const QList<Banner> &all() const { return m_banners; }

    /// Sets the banner's text, and a `copy` that no other ask with the same text has.
    void noteWords(Banner &banner, const QString &words);
    /// Sets the banner's number at that server. Another banner that had the number loses it.
    void number(Banner &banner, const QString &server, uint number);
    void forget(const QString &requestIdentifier);
    /// Ends the banner that is on the screen; a notification that waits to be sent stays.
    void forgetNumber(const QString &requestIdentifier);
    /// Removes the banners that were never sent.
    void forgetUnsent();
    /// Forgets the banners of every other server: their numbers are invalid now, or belong to other banners. The newest
    /// asks that were on the screen, or being sent, are sent again, without a sound.
    void keepOnly(const QString &server);

private:
    QList<Banner> m_banners;
};

} // namespace pingwell
