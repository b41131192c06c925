#include "ui/lists/store_list_model.h"

#include "ui/engine/replace_store.h"

namespace pingwell {

StoreListModel::StoreListModel(const QByteArray &valueName, QList<Change> dependsOn, QObject *parent)
    : KeyedListModel(valueName, parent)
    , m_dependsOn(std::move(dependsOn))
{
}

void StoreListModel::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
    if (store) {
        for (const Change change : std::as_const(m_dependsOn))
            connect(store, change, this, &StoreListModel::storeMoved);
    }
    emit storeChanged();
    storeMoved();
}

void StoreListModel::update()
{
    setRows(m_store ? rowsOf(*m_store) : QList<KeyedRow>());
}

} // namespace pingwell
