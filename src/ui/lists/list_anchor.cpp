#include "ui/lists/list_anchor.h"

#include "ui/lists/keyed_list_model.h"

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
        m_places.append(placeOf(row, origin + row * m_rowHeight - position));
    const int current = m_view->property("currentIndex").toInt();
    if (current < 0)
        return;
    m_current = placeOf(current, origin + current * m_rowHeight - position);
    // Where it is in view, the person looks at it.
    if (current >= first && current <= last)
        m_places.prepend(*m_current);
}

ListAnchor::Place ListAnchor::placeOf(int row, double offset) const
{
    const auto *keyed = qobject_cast<const KeyedListModel *>(m_model);
    return {m_model->index(row, 0), keyed ? keyed->idAt(row) : QString(), offset};
}

int ListAnchor::rowOf(const Place &place) const
{
    if (place.row.isValid())
        return place.row.row();
    const auto *keyed = qobject_cast<const KeyedListModel *>(m_model);
    return keyed ? keyed->rowOf(place.id) : -1;
}

/// The view moves the keyboard's place to a neighbour when its row is removed, even if it is inserted again.
void ListAnchor::followCurrentRow()
{
    const std::optional<Place> current = std::exchange(m_current, std::nullopt);
    const int row = current ? rowOf(*current) : -1;
    if (row >= 0 && row != m_view->property("currentIndex").toInt())
        m_view->setProperty("currentIndex", row);
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
        std::find_if(places.begin(), places.end(), [this](const Place &place) { return rowOf(place) >= 0; });
    double position = top();
    if (!m_wasAtTop && kept != places.end())
        position = origin + rowOf(*kept) * m_rowHeight - kept->offset;
    else if (!m_wasAtTop)
        position = m_view->property("contentY").toDouble();
    const double lowest = std::max(top(), origin + height - m_view->height());
    m_view->setProperty("contentY", std::clamp(position, top(), lowest));
    followCurrentRow();
}

} // namespace pingwell
