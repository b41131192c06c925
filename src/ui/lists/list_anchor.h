#pragma once

#include <QAbstractItemModel>
#include <QList>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace pingwell {

/// Keeps what a list shows where it is while rows come, go and move around it. A list at its very top stays there, and
/// shows what comes. The list is a vertical ListView whose rows are all of one height and stand without gaps; its model
/// must never reset. The keyboard's place follows its row, too, where a keyed model replaces many rows at once.
class ListAnchor : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *view READ view WRITE setView NOTIFY viewChanged REQUIRED)
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    Q_PROPERTY(double rowHeight READ rowHeight WRITE setRowHeight NOTIFY rowHeightChanged REQUIRED)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem *view() const { return m_view; }
    void setView(QQuickItem *view);
    [[nodiscard]] QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);
    [[nodiscard]] double rowHeight() const { return m_rowHeight; }
    void setRowHeight(double height);

signals:
    void viewChanged();
    void modelChanged();
    void rowHeightChanged();

private:
    /// A row that was in view, and how far below the upper edge it stood.
    struct Place
    {
        QPersistentModelIndex row;
        /// Finds the row again where it was removed and inserted anew; empty where the model knows none.
        QString id;
        double offset = 0;
    };

    void hold();
    void release();
    [[nodiscard]] Place placeOf(int row, double offset) const;
    /// Where the row is now; -1 when it is gone.
    [[nodiscard]] int rowOf(const Place &place) const;
    void followCurrentRow();
    [[nodiscard]] double top() const;

    QPointer<QQuickItem> m_view;
    QPointer<QAbstractItemModel> m_model;
    double m_rowHeight = 0;
    bool m_isHolding = false;
    bool m_wasAtTop = false;
    /// The best to hold on to first: the one that the keyboard is at, then from the upper edge down.
    QList<Place> m_places;
    /// The row that the keyboard is at.
    std::optional<Place> m_current;
};

} // namespace pingwell
