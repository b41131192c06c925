pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** Where else the person is signed in. */
FormSection {
    id: root

    required property AppStore store
    property bool confirmRemoval: false
    // What the person is asked about.
    property string removedID
    property string removedName

    title: "Devices"
    footer: devices.count === 0 ? "No devices yet. Each one shows up here once it has signed in." : ""
    footerIdentifier: "settings.devices.empty"

    Repeater {
        model: DeviceListModel {
            id: devices

            store: root.store
        }
        delegate: DeviceRow {
            now: root.store.now
            onRemoveRequested: {
                root.removedName = device.name
                root.removedID = device.id
                root.confirmRemoval = true
            }
        }
    }

    ConfirmSheet {
        wanted: root.confirmRemoval
        idPrefix: "settings.removeDevice"
        title: "Remove “" + root.removedName + "”?"
        message: "Pingwell signs out there, and no more alerts arrive on it until someone signs in again."
        confirmLabel: "Remove device"
        onConfirmed: root.store.removeDevice(root.removedID)
        onClosed: root.confirmRemoval = false
    }
}
