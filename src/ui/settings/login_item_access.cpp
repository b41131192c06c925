#include "ui/settings/login_item_access.h"

namespace pingwell {

LoginItemAccess::LoginItemAccess(std::shared_ptr<LoginItem> item, QObject *parent)
    : QObject(parent)
    , m_item(std::move(item))
{
}

void LoginItemAccess::refresh()
{
    const LoginItemStatus status = m_item->status();
    if (m_status == status)
        return;
    m_status = status;
    emit statusChanged();
}

void LoginItemAccess::setEnabled(bool enabled)
{
    setLaunchAtLogin(*m_item, enabled);
    refresh();
}

void LoginItemAccess::openSettings()
{
    m_item->openSettings();
}

} // namespace pingwell
