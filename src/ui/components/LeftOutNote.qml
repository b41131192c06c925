import QtQuick
import Pingwell

/** Says which of the service's records no screen shows, while there are any. */
SymbolLabel {
    id: root

    required property AppStore store

    objectName: "connection.leftOut"
    height: visible ? implicitHeight : 0
    visible: root.store.leftOut.length > 0
    symbolName: "exclamationmark.triangle.fill"
    text: root.store.leftOut
    color: Theme.timedOut
}
