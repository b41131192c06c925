import QtQuick
import Pingwell

/** What can be done with the open alert besides answering it. */
Row {
    id: root

    required property AppStore store
    required property alertRow alert
    required property bool canDelete

    spacing: Theme.gap2

    PlainButton {
        objectName: "detail.toggleRead"
        label: root.alert.read ? "Mark as unread" : "Mark as read"
        onClicked: root.store.toggleRead(root.alert.id)
    }

    PlainButton {
        objectName: "detail.delete"
        visible: root.canDelete
        label: "Delete"
        symbolName: "trash"
        destructive: true
        onClicked: root.store.deleteAlert(root.alert.id)
    }
}
