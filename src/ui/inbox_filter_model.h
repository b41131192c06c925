#pragma once

#include "store/app_store.h"
#include "ui/keyed_list_model.h"

#include <QPointer>
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
class InboxFilterModel : public pingwell::KeyedListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    /// The row of the filter in force; -1 when it is none of these.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    explicit InboxFilterModel(QObject *parent = nullptr);

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    [[nodiscard]] int selectedRow() const { return m_selectedRow; }

    /// Puts the filter with that id in force.
    Q_INVOKABLE void choose(const QString &id);

signals:
    void storeChanged();
    void selectedRowChanged();

private:
    [[nodiscard]] QList<FilterChipRow> chips() const;
    void scheduleUpdate();
    void update();
    void setSelectedRow(int row);

    QPointer<AppStore> m_store;
    int m_selectedRow = -1;
    bool m_updateScheduled = false;
};

} // namespace pingwell
