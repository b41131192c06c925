import QtQuick
import Pingwell

/** What can be done with the open alert besides answering it. */
Row {
    id: root

    required property AppStore store
    required property alertRow alert
    required property bool canDelete

    signal deleteRequested

    spacing: Theme.gap2

    PlainButton {
        objectName: "detail.toggleRead"
        label: root.alert.read ? "Mark as unread" : "Mark as read"
        meaning: root.alert.id + " " + label
        onClicked: root.store.toggleRead(root.alert.id)
    }

    PlainButton {
        objectName: "detail.delete"
        visible: root.canDelete
        label: "Delete"
        meaning: root.alert.id
        symbolName: "trash"
        destructive: true
        onClicked: root.deleteRequested()
    }
}
