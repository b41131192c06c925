#include "store/left_asks.h"

#include "auth/account_record.h"
#include "store/notification_choice.h"
#include "store/preference_keys.h"

#include <algorithm>
#include <utility>

namespace pingwell {

LeftAsks::LeftAsks(QStringList alertIDs, const Preferences &preferences)
    : m_ids(std::move(alertIDs))
    , m_baseURL(preferences.string(preference_keys::sessionBaseURL).value_or(QString()))
{
    const auto record = preferences.data(preference_keys::sessionAccount);
    if (const auto account = record ? decodedAccount(*record) : std::nullopt)
        m_email = account->email;
}

LeftAsks::Fate LeftAsks::settle(const QUrl &baseURL, const QString &email, const QList<Alert> &alerts, Instant now)
{
    Fate fate{.announced = {}, .dropped = std::exchange(m_ids, {})};
    if (fate.dropped.isEmpty() || m_email.isEmpty() || m_email != email ||
        m_baseURL != baseURL.toString(QUrl::FullyEncoded))
        return fate;
    std::copy_if(alerts.begin(), alerts.end(), std::back_inserter(fate.announced),
                 [&](const Alert &alert) { return fate.dropped.contains(alert.id) && alert.isWaiting(now); });
    std::stable_sort(fate.announced.begin(), fate.announced.end(),
                     [](const Alert &left, const Alert &right) { return left.at > right.at; });
    fate.announced.resize(std::min(fate.announced.size(), maximumNotificationsPerRefresh));
    for (const Alert &alert : std::as_const(fate.announced))
        fate.dropped.removeAll(alert.id);
    return fate;
}

} // namespace pingwell
