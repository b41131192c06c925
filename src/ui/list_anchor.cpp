#include "ui/list_anchor.h"

#include <algorithm>
#include <cmath>

namespace pingwell {

void ListAnchor::setView(QQuickItem *view)
{
    if (m_view == view)
        return;
    m_view = view;
    emit viewChanged();
}

void ListAnchor::setModel(QAbstractItemModel *model)
{
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (model) {
        connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this, &ListAnchor::hold);
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &ListAnchor::hold);
        connect(model, &QAbstractItemModel::rowsAboutToBeMoved, this, &ListAnchor::hold);
    }
    emit modelChanged();
}

void ListAnchor::setRowHeight(double height)
{
    if (m_rowHeight == height)
        return;
    m_rowHeight = height;
    emit rowHeightChanged();
}

/// The content position at which the list stands at its very top.
double ListAnchor::top() const
{
    return m_view->property("originY").toDouble() - m_view->property("topMargin").toDouble();
}

void ListAnchor::hold()
{
    if (m_isHolding || !m_view || m_rowHeight <= 0)
        return;
    m_isHolding = true;
    // All the steps of one change are taken before anything else happens.
    QMetaObject::invokeMethod(this, &ListAnchor::release, Qt::QueuedConnection);

    const double position = m_view->property("contentY").toDouble();
    const double origin = m_view->property("originY").toDouble();
    m_wasAtTop = position <= top();
    const int first = int(std::max(0.0, std::ceil((position - origin) / m_rowHeight)));
    const int last = int(std::floor((position + m_view->height() - origin) / m_rowHeight));
    for (int row = first; row <= last && row < m_model->rowCount(); ++row)
        m_places.append({m_model->index(row, 0), origin + row * m_rowHeight - position});
}

void ListAnchor::release()
{
    const QList<Place> places = std::exchange(m_places, {});
    m_isHolding = false;
    if (!m_view)
        return;
    QMetaObject::invokeMethod(m_view, "forceLayout");
    const double origin = m_view->property("originY").toDouble();
    const double height = m_view->property("contentHeight").toDouble() + m_view->property("bottomMargin").toDouble();
    const auto kept =
        std::find_if(places.begin(), places.end(), [](const Place &place) { return place.row.isValid(); });
    double position = top();
    if (!m_wasAtTop && kept != places.end())
        position = origin + kept->row.row() * m_rowHeight - kept->offset;
    else if (!m_wasAtTop)
        position = m_view->property("contentY").toDouble();
    const double lowest = std::max(top(), origin + height - m_view->height());
    m_view->setProperty("contentY", std::clamp(position, top(), lowest));
}

} // namespace pingwell
