#include "linux/session/logind_system_events.h"

#include <QDBusConnection>
#include <QTimer>

#include <chrono>

namespace pingwell {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Postponed, because both open connections and neither is needed in the first moments.
constexpr auto afterTheStart = 500ms;

} // namespace

LogindSystemEvents::LogindSystemEvents(QObject *parent)
    : SystemEvents(parent)
{
    QTimer::singleShot(afterTheStart, this, [this] {
        listenToLogind();
        listenToNetwork();
    });
}

void LogindSystemEvents::noteReachability(QNetworkInformation::Reachability reachability)
{
    using Reachability = QNetworkInformation::Reachability;
    if (reachability == Reachability::Disconnected) {
        m_networkGone = true;
    } else if (reachability == Reachability::Online && m_networkGone) {
        m_networkGone = false;
        emit networkReturned();
    }
}

/// logind sends PrepareForSleep twice: true before the computer sleeps, false after it has woken up.
void LogindSystemEvents::noteSleep(bool starting)
{
    if (!starting)
        emit wokeUp();
}

void LogindSystemEvents::listenToLogind()
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (bus.isConnected()) {
        bus.connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s,
                    u"PrepareForSleep"_s, this, SLOT(noteSleep(bool)));
    }
}

void LogindSystemEvents::listenToNetwork()
{
    if (!QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability))
        return;
    const QNetworkInformation *const network = QNetworkInformation::instance();
    connect(network, &QNetworkInformation::reachabilityChanged, this, &LogindSystemEvents::noteReachability);
    noteReachability(network->reachability());
}

} // namespace pingwell
