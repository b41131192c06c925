#include "status/status_condition.h"

namespace pingwell {

QString statusDescription(StatusCondition condition)
{
    switch (condition) {
    case StatusCondition::following:
        return {};
    case StatusCondition::signedOut:
        return QStringLiteral("Signed out. Open Pingwell to sign in.");
    case StatusCondition::offline:
        return QStringLiteral("Not up to date. New alerts don't arrive.");
    }
    return {};
}

StatusCondition StatusConditionWatch::look(const AppStore &store)
{
    if (!store.connectionProblem())
        m_problemSince.reset();
    else if (!m_problemSince)
        m_problemSince = store.now();
    if (!store.isSignedIn())
        return StatusCondition::signedOut;
    const bool lasts = m_problemSince && store.now() - *m_problemSince >= toleratedSilence;
    return lasts ? StatusCondition::offline : StatusCondition::following;
}

} // namespace pingwell
