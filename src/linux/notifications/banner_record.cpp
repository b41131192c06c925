#include "linux/notifications/banner_record.h"

#include "desktop/preference_keys.h"

#include <algorithm>

namespace pingwell {

namespace {

/// A longer identifier is not stored: the next run closes its banner, but does not announce its ask again.
constexpr qsizetype longestIdentifier = 256;
constexpr qsizetype fieldsBeforeIdentifier = 3;

} // namespace

BannerRecord::BannerRecord(std::shared_ptr<Preferences> preferences)
    : m_preferences(std::move(preferences))
{
    if (m_preferences)
        m_kept = m_preferences->strings(preference_keys::shownNotifications).value_or(QStringList());
    for (const QString &line : std::as_const(m_kept)) {
        if (const std::optional<Entry> entry = read(line))
            m_left.append(*entry);
    }
}

QStringList BannerRecord::leftBehind() const
{
    QStringList identifiers;
    for (const Entry &entry : m_left) {
        if (!entry.requestIdentifier.isEmpty())
            identifiers.append(entry.requestIdentifier);
    }
    return identifiers;
}

bool BannerRecord::mayBeShown() const
{
    return std::any_of(m_left.begin(), m_left.end(), [](const Entry &entry) { return entry.number != 0; });
}

QList<uint> BannerRecord::takeNumbers(const QString &bus, const QString &server)
{
    QList<uint> numbers;
    for (Entry &entry : m_left) {
        if (entry.number != 0 && entry.bus == bus && entry.server == server)
            numbers.append(entry.number);
        entry.number = 0;
    }
    return numbers;
}

void BannerRecord::forget(const QStringList &requestIdentifiers)
{
    m_left.removeIf([&](const Entry &entry) { return requestIdentifiers.contains(entry.requestIdentifier); });
}

void BannerRecord::keep(const QList<Banner> &banners, const QString &bus)
{
    QStringList lines;
    for (const Entry &entry : std::as_const(m_left)) {
        // Without a number and an identifier the entry is useless.
        if (entry.number != 0 || !entry.requestIdentifier.isEmpty())
            lines.append(written(entry));
    }
    for (const Banner &banner : banners) {
        // One that waits for the next server has no number there yet.
        const bool isAskedAgain = banner.number == 0 && banner.takesAnswers && banner.next && !banner.server.isEmpty();
        if (isAskedAgain || (banner.number != 0 && banner.stage != Banner::Stage::closed))
            lines.append(written({bus, banner.server, banner.number, banner.requestIdentifier}));
    }
    if (!m_preferences || lines == m_kept)
        return;
    m_kept = lines;
    m_preferences->setStrings(preference_keys::shownNotifications, lines);
}

void BannerRecord::whenWritten(const std::function<void()> &then) const
{
    if (m_preferences)
        m_preferences->whenWritten([then](bool) { then(); });
    else
        then();
}

std::optional<BannerRecord::Entry> BannerRecord::read(const QString &line)
{
    const QStringList fields = line.split(u' ');
    if (fields.size() <= fieldsBeforeIdentifier)
        return std::nullopt;
    return Entry{.bus = fields.at(0),
                 .server = fields.at(1),
                 .number = fields.at(2).toUInt(),
                 .requestIdentifier = line.section(u' ', fieldsBeforeIdentifier)};
}

QString BannerRecord::written(const Entry &entry)
{
    const bool isShort = entry.requestIdentifier.size() <= longestIdentifier;
    return entry.bus + u' ' + entry.server + u' ' + QString::number(entry.number) + u' ' +
           (isShort ? entry.requestIdentifier : QString());
}

} // namespace pingwell
