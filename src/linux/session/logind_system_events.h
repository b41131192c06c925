#pragma once

#include "desktop/system_events.h"

#include <QNetworkInformation>

namespace pingwell {

/// Sleep as logind tells it on the system bus, the network as Qt's own observer sees it. Either may be missing; what it
/// would tell is then never told. Starts listening a moment after the event loop, not to delay the start.
class LogindSystemEvents final : public SystemEvents
{
    Q_OBJECT

public:
    explicit LogindSystemEvents(QObject *parent = nullptr);

    /// Takes in a state of the network; being online is news only after the network was gone.
    void noteReachability(QNetworkInformation::Reachability reachability);

private slots:
    void noteSleep(bool starting);

private:
    void listenToLogind();
    void listenToNetwork();

    bool m_networkGone = false;
};

} // namespace pingwell
