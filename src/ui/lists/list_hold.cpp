#include "ui/lists/list_hold.h"

#include "ui/components/window_input.h"

#include <QQuickWindow>

#include <algorithm>

namespace pingwell {

void ListHold::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && isComponentComplete())
        follow(data.window);
}

void ListHold::componentComplete()
{
    QQuickItem::componentComplete();
    follow(window());
}

void ListHold::follow(QQuickWindow *window)
{
    if (m_input) {
        m_input->disconnect(this);
        m_input->parent()->disconnect(this);
    }
    m_input = window ? WindowInput::of(this) : nullptr;
    if (!m_input)
        return;
    connect(m_input, &WindowInput::looked, this, &ListHold::look);
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &ListHold::look);
}

void ListHold::look()
{
    const double reach = currentReach();
    const bool hasFocus = hasFocusWithin();
    if (reach == m_reach && hasFocus == m_hasFocus)
        return;
    m_reach = reach;
    m_hasFocus = hasFocus;
    emit changed();
}

double ListHold::currentReach() const
{
    double lowest = -1;
    if (!m_input || !m_area || !m_viewport || !m_area->isVisible())
        return lowest;
    const QList<QPointF> places = m_input->places();
    for (const QPointF &place : places) {
        const QPointF inViewport = m_viewport->mapFromGlobal(place);
        const bool isOnList = m_viewport->contains(inViewport) && m_area->contains(m_area->mapFromGlobal(place));
        if (isOnList)
            lowest = std::max(lowest, inViewport.y());
    }
    return lowest;
}

bool ListHold::hasFocusWithin() const
{
    const QQuickItem *const focused = window() ? window()->activeFocusItem() : nullptr;
    return m_area && focused && (focused == m_area || m_area->isAncestorOf(focused));
}

} // namespace pingwell
