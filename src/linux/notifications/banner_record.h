#pragma once

#include "desktop/preferences.h"
#include "linux/notifications/banner.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace pingwell {

/// Stores in the preferences which banners are on the screen, so that the next run can close the banners of a killed
/// one; presses in those would reach no program. It stores identifiers and numbers, never texts. Main thread.
class BannerRecord
{
public:
    /// Reads the last run's banners from `preferences`; null stores nothing.
    explicit BannerRecord(std::shared_ptr<Preferences> preferences = nullptr);

    /// The requests whose banners the last run left on the screen, until `forget` is called for them.
    [[nodiscard]] QStringList leftBehind() const;
    /// Whether banners of the last run may still be on the screen.
    [[nodiscard]] bool mayBeShown() const;
    /// Removes and returns the numbers of the banners left on `server` of the bus with that identifier. On any other
    /// bus or server those numbers are invalid, or belong to other programs' banners.
    [[nodiscard]] QList<uint> takeNumbers(const QString &bus, const QString &server);
    void forget(const QStringList &requestIdentifiers);

    /// Stores `banners`, which servers of the bus with that identifier show, and the last run's that are not forgotten.
    void keep(const QList<Banner> &banners, const QString &bus);
    /// Calls `then` when every change of the preferences so far has been written or its writing has failed.
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
