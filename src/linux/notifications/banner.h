#pragma once

#include "desktop/notification_content.h"

#include <QList>
#include <QString>
#include <QStringList>

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
        /// Taken back by us; until the server confirms it, it may still report what the person pressed just before.
        closed
    };

    QString requestIdentifier;
    /// What was sent last.
    NotificationRequest sent;
    /// The server it was sent to last, and its number there; 0 until it has one.
    QString server;
    uint number = 0;
    Stage stage = Stage::shown;
    /// The keys of all that the server was ever asked to draw under this number; it may report others.
    QStringList offeredKeys;
    /// It is a question's: what is pressed in it may be an answer.
    bool takesAnswers = false;
    /// What it says, and which of the questions that say the same it is: the first, the second and so on.
    QString words;
    int copy = 1;
    /// Lets the next response bring a window forward.
    QString activationToken;
    /// The server has not told yet under which number it shows what was sent last.
    bool isSending = false;
    /// To be taken back as soon as its number is known.
    bool isWithdrawn = false;
    /// What is to be shown as soon as the server can take it.
    std::optional<NotificationRequest> next;
};

/// The banners of this run, oldest first. A server's number stands for one of them at most.
class BannerList
{
public:
    /// Gives one up where there are as many as there may be, for the server to be asked to close it: what was taken
    /// back goes first, then notices, then questions, each from the oldest on, and what has left the screen before what
    /// is on it. None is given up that the server has not named a number for.
    [[nodiscard]] std::optional<Banner> makeRoom();
    /// The one of that request, made if there is none.
    Banner &obtain(const QString &requestIdentifier);
    [[nodiscard]] Banner *find(const QString &requestIdentifier);
    [[nodiscard]] Banner *find(const QString &server, uint number);
    /// The oldest one that has something to show and may send it.
    [[nodiscard]] Banner *nextToSend();
    [[nodiscard]] bool isAnySending() const;
    [[nodiscard]] QStringList requestIdentifiers() const;
    [[nodiscard]] const QList<Banner> &all() const { return m_banners; }

    /// Notes what the banner says. Its `copy` becomes one that no other question in the same words has.
    void noteWords(Banner &banner, const QString &words);
    /// Notes under which number that server shows the banner. A number that stood for another one does so no longer.
    void number(Banner &banner, const QString &server, uint number);
    void forget(const QString &requestIdentifier);
    /// Ends what the server shows under its number; what is still to be shown stays.
    void forgetNumber(const QString &requestIdentifier);
    /// Drops what waits to be shown for the first time.
    void forgetUnsent();
    /// Forgets what any other server shows: its numbers mean nothing any more, or something else. The newest questions
    /// that were on the screen, or on their way, wait to be shown again, without a sound.
    void keepOnly(const QString &server);

private:
    QList<Banner> m_banners;
};

} // namespace pingwell
