#include "windows/panel_visibility.h"

namespace pingwell {

bool PanelVisibility::clicked(TimePoint now)
{
    if (m_visible)
        return false;
    return !m_hiddenByFocusLoss || now - *m_hiddenByFocusLoss >= reopenGuard;
}

void PanelVisibility::shown()
{
    m_visible = true;
    m_wasActive = false;
    m_hiddenByFocusLoss.reset();
}

void PanelVisibility::hidden()
{
    m_visible = false;
}

void PanelVisibility::activated()
{
    m_wasActive = true;
}

bool PanelVisibility::deactivated(TimePoint now, bool hasUnsentReply)
{
    if (!m_visible || !m_wasActive || hasUnsentReply)
        return false;
    m_hiddenByFocusLoss = now;
    return true;
}

} // namespace pingwell
