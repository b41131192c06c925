#pragma once

#include "notify/alert_responses.h"
#include "store/app_store.h"
#include "windows/app_windows.h"

#include <QPointer>

namespace pingwell {

/// Passes the person's responses to notifications on to the store and the windows. Main thread.
class NotificationResponses final : public AlertResponses
{
public:
    NotificationResponses(AppStore *store, AppWindows *windows);

    void answer(const QString &alertId, const QString &text) override;
    void open(const QString &alertId, bool focusReply, const QString &activationToken) override;

private:
    QPointer<AppStore> m_store;
    QPointer<AppWindows> m_windows;
};

} // namespace pingwell
