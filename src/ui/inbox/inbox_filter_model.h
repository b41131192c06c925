#pragma once

#include "ui/lists/store_list_model.h"

#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// One choice of what the inbox shows; the label is cleaned for display.
struct FilterChipRow
{
    Q_GADGET
    QML_VALUE_TYPE(filterChip)
    Q_PROPERTY(QString id MEMBER id FINAL)
    Q_PROPERTY(QString label MEMBER label FINAL)
    Q_PROPERTY(int count MEMBER count FINAL)
    Q_PROPERTY(bool selected MEMBER selected FINAL)

public:
    /// "all", "asks", or "topic." and the topic's exact name.
    QString id;
    QString label;
    /// How many alerts it would show.
    int count = 0;
    bool selected = false;

    friend bool operator==(const FilterChipRow &, const FilterChipRow &) = default;
};

/// What the inbox can be narrowed to: everything, asks, or one of the active workspace's topics, in their order.
// The base is named in full: the registration of QML types does not look names up.
class InboxFilterModel : public pingwell::StoreListModel
{
    Q_OBJECT
    QML_ELEMENT
    /// The row of the filter in force; -1 when it is none of these.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    explicit InboxFilterModel(QObject *parent = nullptr);

    [[nodiscard]] int selectedRow() const { return m_selectedRow; }

    /// Puts the filter with that id in force.
    Q_INVOKABLE void choose(const QString &id);

signals:
    void selectedRowChanged();

private:
    [[nodiscard]] QList<KeyedRow> rowsOf(const AppStore &store) override;
    void storeMoved() override;
    void updateAll();
    void setSelectedRow(int row);

    int m_selectedRow = -1;
    bool m_updateScheduled = false;
};

} // namespace pingwell
