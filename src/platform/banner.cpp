#include "platform/banner.h"

#include <QStringList>

#include <algorithm>

namespace pingwell {

namespace {

constexpr qsizetype mostBanners = 256;

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

} // namespace

Banner &BannerList::obtain(const QString &requestIdentifier)
{
    if (Banner *const known = find(requestIdentifier))
        return *known;
    if (m_banners.size() >= mostBanners)
        m_banners.removeFirst();
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
        if (!banner.isSending)
            banner.next.reset();
    }
    m_banners.removeIf(isNothing);
}

void BannerList::keepOnly(const QString &server)
{
    for (Banner &banner : m_banners) {
        if (banner.server != server)
            banner.number = 0;
    }
    m_banners.removeIf(isNothing);
}

} // namespace pingwell
