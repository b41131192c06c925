#pragma once

#include "store/app_store.h"
#include "ui/lists/keyed_list_model.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// A list of rows made from the store. It is brought up to date as soon as the store announces one of the changes that
/// the list depends on.
// The base is named in full: the registration of QML types does not look names up.
class StoreListModel : public pingwell::KeyedListModel
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)

public:
    using Change = void (AppStore::*)();

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);

signals:
    void storeChanged();

protected:
    StoreListModel(const QByteArray &valueName, QList<Change> dependsOn, QObject *parent);

    /// The rows as the store has them now.
    [[nodiscard]] virtual QList<KeyedRow> rowsOf(const AppStore &store) = 0;
    /// For those who can wait for the next turn of the event loop, or have more to bring up to date.
    virtual void storeMoved() { update(); }
    void update();

private:
    QList<Change> m_dependsOn;
    QPointer<AppStore> m_store;
};

} // namespace pingwell
