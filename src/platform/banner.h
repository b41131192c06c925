#pragma once

#include "notify/notification_content.h"

#include <QList>
#include <QString>

#include <optional>

namespace pingwell {

/// What the program knows of one notification it showed, or is about to show.
struct Banner
{
    /// As far as the server has told.
    enum class Stage {
        shown,
        /// No longer on the screen; some servers keep it in a list, where it can still be clicked.
        expired,
        /// Taken back by us; the server may still report what the person did just before.
        closed
    };

    QString requestIdentifier;
    NotificationPayload payload;
    /// The server that shows it and its number there; 0 until it has one.
    QString server;
    uint number = 0;
    Stage stage = Stage::shown;
    /// Lets the next response bring a window forward.
    QString activationToken;
    /// The server has not told yet under which number it shows what was sent last.
    bool isSending = false;
    /// To be taken back as soon as its number is known.
    bool isWithdrawn = false;
    /// What is to be shown as soon as the server can take it.
    std::optional<NotificationRequest> next;
};

/// The banners of this run, oldest first. Bounded: the oldest are forgotten, long after servers have dropped them.
class BannerList
{
public:
    /// The one of that request, made if there is none.
    Banner &obtain(const QString &requestIdentifier);
    [[nodiscard]] Banner *find(const QString &requestIdentifier);
    [[nodiscard]] Banner *find(const QString &server, uint number);
    /// The oldest one that has something to show and may send it.
    [[nodiscard]] Banner *nextToSend();
    [[nodiscard]] bool isAnySending() const;
    [[nodiscard]] QStringList requestIdentifiers() const;

    void forget(const QString &requestIdentifier);
    /// Ends what the server shows under its number; what is still to be shown stays.
    void forgetNumber(const QString &requestIdentifier);
    /// Drops what waits to be shown.
    void forgetUnsent();
    /// Forgets what any other server shows: its numbers mean nothing any more, or something else.
    void keepOnly(const QString &server);

private:
    QList<Banner> m_banners;
};

} // namespace pingwell
