#pragma once

#include "ui/lists/store_list_model.h"

#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What a screen shows of one device; the texts are cleaned for display.
struct DeviceRow
{
    Q_GADGET
    QML_VALUE_TYPE(deviceRow)
    Q_PROPERTY(QString id MEMBER id FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString version MEMBER version FINAL)
    Q_PROPERTY(QString symbolName MEMBER symbolName FINAL)
    Q_PROPERTY(double lastSeen MEMBER lastSeen FINAL)
    Q_PROPERTY(bool isThisComputer MEMBER isThisComputer FINAL)

public:
    QString id;
    QString name;
    QString version;
    QString symbolName;
    /// Milliseconds since 1970.
    double lastSeen = 0;
    bool isThisComputer = false;

    friend bool operator==(const DeviceRow &, const DeviceRow &) = default;
};

/// The person's devices in the store's order.
// The base is named in full: the registration of QML types does not look names up.
class DeviceListModel : public pingwell::StoreListModel
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit DeviceListModel(QObject *parent = nullptr);

private:
    [[nodiscard]] QList<KeyedRow> rowsOf(const AppStore &store) override;
};

} // namespace pingwell
