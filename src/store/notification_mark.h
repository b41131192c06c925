#pragma once

#include "desktop/preferences.h"
#include "model/account.h"
#include "model/alert.h"

#include <QList>
#include <QSet>
#include <QUrl>

#include <memory>
#include <optional>

namespace pingwell {

/// Up to where the alerts of one person at one server have been looked through for what is new, kept in the
/// preferences: only what lies beyond is announced, so that nothing is announced twice. The mark is the time of an
/// alert, never goes back and never passes the time of the look; alerts dated later than that are remembered by name,
/// because a mark that followed them would silence all that are posted until then.
class NotificationMark
{
public:
    explicit NotificationMark(std::shared_ptr<Preferences> preferences);

    /// Makes it the mark of `owner`: one of somebody else is forgotten, one of nobody is taken over, and so is any by
    /// an empty owner, who is not known yet. A mark that lies after `now`, the service's time, comes back to it.
    void claim(const QString &owner, Instant now);
    /// The owner goes by another name from now on.
    void handOver(const QString &from, const QString &to);

    /// Whose mark it is; empty while nobody has claimed it.
    [[nodiscard]] QString owner() const;
    /// Only later alerts are new; none before the first look, which only sets the mark.
    [[nodiscard]] std::optional<Instant> after() const;
    /// The alerts looked at that were dated later than the look.
    [[nodiscard]] QSet<QString> ahead() const;

    /// All alerts there are have been looked at.
    void advance(const QList<Alert> &alerts, Instant now);
    /// One more alert has been looked at.
    void note(const Alert &alert, Instant now);

private:
    void moveTo(const QList<Alert> &alerts, Instant now);
    void setAhead(const QStringList &alertIDs);

    std::shared_ptr<Preferences> m_preferences;
};

/// Names a person at a server without telling who it is; empty while the person is not known.
[[nodiscard]] QString notificationMarkOwner(const QUrl &server, const Account &account);

} // namespace pingwell
