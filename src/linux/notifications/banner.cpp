#include "linux/notifications/banner.h"

#include <algorithm>
#include <utility>

namespace pingwell {

namespace {

constexpr qsizetype mostBanners = 256;
/// The number of asks shown again after the server was restarted; GNOME Shell keeps as many.
constexpr qsizetype mostShownAgain = 3;

template<typename Matches>
Banner *findBy(QList<Banner> &banners, Matches matches)
{
    const auto found = std::find_if(banners.begin(), banners.end(), matches);
    return found == banners.end() ? nullptr : &*found;
}

bool isNothing(const Banner &banner)
{
    return banner.number == 0 && !banner.isSending && !banner.next;
}

/// How important it is to keep the banner; the lowest is closed first.
int weight(const Banner &banner)
{
    if (banner.stage == Banner::Stage::closed)
        return 0;
    return (banner.takesAnswers ? 3 : 1) + (banner.stage == Banner::Stage::shown ? 1 : 0);
}

} // namespace

std::optional<Banner> BannerList::makeRoom()
{
    if (m_banners.size() < mostBanners)
        return std::nullopt;
    // A banner whose number is not known yet comes last, because it could not be closed.
    const auto isMissedLess = [](const Banner &left, const Banner &right) {
        return left.isSending == right.isSending ? weight(left) < weight(right) : right.isSending;
    };
    const auto least = std::min_element(m_banners.begin(), m_banners.end(), isMissedLess);
    if (least->isSending)
        return std::nullopt;
    return m_banners.takeAt(least - m_banners.begin());
}

Banner &BannerList::obtain(const QString &requestIdentifier)
{
    if (Banner *const known = find(requestIdentifier))
        return *known;
    m_banners.emplace_back().requestIdentifier = requestIdentifier;
    return m_banners.last();
}

Banner *BannerList::find(const QString &requestIdentifier)
{
    return findBy(m_banners, [&](const Banner &banner) { return banner.requestIdentifier == requestIdentifier; });
}

Banner *BannerList::find(const QString &server, uint number)
{
    return findBy(m_banners, [&](const Banner &banner) {
        return banner.number != 0 && banner.number == number && banner.server == server;
    });
}

Banner *BannerList::nextToSend()
{
    return findBy(m_banners, [](const Banner &banner) { return banner.next && !banner.isSending; });
}

bool BannerList::isAnySending() const
{
    return std::any_of(m_banners.begin(), m_banners.end(), [](const Banner &banner) { return banner.isSending; });
}

QStringList BannerList::requestIdentifiers() const
{
    QStringList identifiers;
    for (const Banner &banner : m_banners)
        identifiers.append(banner.requestIdentifier);
    return identifiers;
}

void BannerList::noteWords(Banner &banner, const QString &words)
{
    QList<int> taken;
    for (const Banner &other : std::as_const(m_banners)) {
        const bool isQuestion = other.takesAnswers && other.stage != Banner::Stage::closed;
        if (&other != &banner && isQuestion && other.words == words)
            taken.append(other.copy);
    }
    if (std::exchange(banner.words, words) != words)
        banner.copy = 1;
    while (banner.takesAnswers && taken.contains(banner.copy))
        ++banner.copy;
}

void BannerList::number(Banner &banner, const QString &server, uint number)
{
    for (Banner &other : m_banners) {
        if (other.number == number && other.server == server)
            other.number = 0;
    }
    banner.server = server;
    banner.number = number;
}

void BannerList::forget(const QString &requestIdentifier)
{
    m_banners.removeIf([&](const Banner &banner) { return banner.requestIdentifier == requestIdentifier; });
}

void BannerList::forgetNumber(const QString &requestIdentifier)
{
    if (Banner *const banner = find(requestIdentifier))
        banner->number = 0;
    m_banners.removeIf(isNothing);
}

void BannerList::forgetUnsent()
{
    for (Banner &banner : m_banners) {
        if (!banner.isSending && banner.server.isEmpty())
            banner.next.reset();
    }
    m_banners.removeIf(isNothing);
}

void BannerList::keepOnly(const QString &server)
{
    qsizetype again = 0;
    for (auto banner = m_banners.rbegin(); banner != m_banners.rend(); ++banner) {
        if (banner->server == server)
            continue;
        const bool isAsked =
            banner->takesAnswers && banner->stage == Banner::Stage::shown && !banner->isWithdrawn && !banner->next;
        if (isAsked && again++ < mostShownAgain) {
            banner->next = banner->sent;
            banner->next->content.sound = false;
        }
        banner->number = 0;
    }
    m_banners.removeIf(isNothing);
}

} // namespace pingwell
