#include "ui/device_list_model.h"

#include "ui/display_text.h"

namespace pingwell {

namespace {

QString symbolOf(DevicePlatform platform)
{
    switch (platform) {
    case DevicePlatform::android:
    case DevicePlatform::ios:
        return QStringLiteral("iphone");
    case DevicePlatform::macos:
        return QStringLiteral("laptopcomputer");
    case DevicePlatform::windows:
    case DevicePlatform::linux_:
        return QStringLiteral("desktopcomputer");
    case DevicePlatform::web:
        break;
    }
    return QStringLiteral("globe");
}

DeviceRow deviceRow(const Device &device, const QString &thisComputer)
{
    const QString name = displayName(device.name);
    DeviceRow row;
    row.id = device.id;
    row.name = name.isEmpty() ? QStringLiteral("(no name)") : name;
    row.version = displayLine(device.version);
    row.symbolName = symbolOf(device.platform);
    row.lastSeen = millisecondsFromInstant(device.lastSeen);
    row.isThisComputer = device.id == thisComputer;
    return row;
}

} // namespace

DeviceListModel::DeviceListModel(QObject *parent)
    : KeyedListModel("device", parent)
{
}

void DeviceListModel::setStore(AppStore *store)
{
    if (m_store == store)
        return;
    if (m_store)
        m_store->disconnect(this);
    m_store = store;
    if (store) {
        connect(store, &AppStore::devicesChanged, this, &DeviceListModel::update);
        // Once this computer is registered, a later refresh tells its identifier.
        connect(store, &AppStore::lastSyncedAtChanged, this, &DeviceListModel::update);
    }
    emit storeChanged();
    update();
}

void DeviceListModel::update()
{
    QList<KeyedRow> rows;
    if (m_store) {
        const QString thisComputer = m_store->deviceIdentifier();
        for (const Device &device : m_store->devices())
            rows.append({device.id, QVariant::fromValue(deviceRow(device, thisComputer))});
    }
    setRows(std::move(rows));
}

} // namespace pingwell
