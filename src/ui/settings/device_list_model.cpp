#include "ui/settings/device_list_model.h"

#include "text/display_text.h"

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
    DeviceRow row;
    row.id = device.id;
    row.name = visibleName(device.name);
    row.version = displayLine(device.version);
    row.symbolName = symbolOf(device.platform);
    row.lastSeen = millisecondsFromInstant(device.lastSeen);
    row.isThisComputer = device.id == thisComputer;
    return row;
}

} // namespace

// Once this computer is registered, a later refresh tells its identifier.
DeviceListModel::DeviceListModel(QObject *parent)
    : StoreListModel("device", {&AppStore::devicesChanged, &AppStore::lastSyncedAtChanged}, parent)
{
}

QList<KeyedRow> DeviceListModel::rowsOf(const AppStore &store)
{
    QList<KeyedRow> rows;
    const QString thisComputer = store.deviceIdentifier();
    for (const Device &device : store.devices())
        rows.append({device.id, QVariant::fromValue(deviceRow(device, thisComputer))});
    return rows;
}

} // namespace pingwell
