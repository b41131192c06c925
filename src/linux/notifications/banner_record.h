#pragma once

#include "desktop/preferences.h"
#include "linux/notifications/banner.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace pingwell {

/// Remembers which banners are on the screen, for the next run: one that was killed can't take them back, and what is
/// pressed in them reaches nobody. It holds identifiers alone, never texts. Main thread.
class BannerRecord
{
public:
    /// Takes up what the last run left in `preferences`; without any, nothing is remembered.
    explicit BannerRecord(std::shared_ptr<Preferences> preferences = nullptr);

    /// The requests whose banners the last run left, until they are forgotten.
    [[nodiscard]] QStringList leftBehind() const;
    /// Some of what was left may still be on the screen.
    [[nodiscard]] bool mayBeShown() const;
    /// Hands out, once, the numbers of what was left on `server` of the bus with that identifier. On any other bus or
    /// server these numbers mean nothing, or somebody else's banners.
    [[nodiscard]] QList<uint> takeNumbers(const QString &bus, const QString &server);
    void forget(const QStringList &requestIdentifiers);

    /// Keeps `banners`, shown by servers of the bus with that identifier, and what was left and is not forgotten.
    void keep(const QList<Banner> &banners, const QString &bus);
    /// Calls `then` once all that the preferences were told so far is on the disk, or could not be written.
    void whenWritten(const std::function<void()> &then) const;

private:
    struct Entry
    {
        QString bus;
        QString server;
        uint number = 0;
        QString requestIdentifier;
    };
    static std::optional<Entry> read(const QString &line);
    static QString written(const Entry &entry);

    std::shared_ptr<Preferences> m_preferences;
    QList<Entry> m_left;
    QStringList m_kept;
};

} // namespace pingwell
