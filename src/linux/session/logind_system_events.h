#pragma once

#include "desktop/system_events.h"

#include <QNetworkInformation>

namespace pingwell {

/// Emits sleep events from logind on the system bus, and network events from Qt's QNetworkInformation. Where one of
/// them is missing, its events are never emitted. Starts to listen shortly after the event loop has started, so that
/// the program's start is not delayed.
class LogindSystemEvents final : public SystemEvents
{
    Q_OBJECT

public:
    explicit LogindSystemEvents(QObject *parent = nullptr);

    /// Handles a change of the network's state; being online is an event only after the network was gone.
    void noteReachability(QNetworkInformation::Reachability reachability);

private slots:
    void noteSleep(bool starting);

private:
    void listenToLogind();
    void listenToNetwork();

    bool m_networkGone = false;
};

} // namespace pingwell
