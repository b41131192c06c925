import QtQuick
import Pingwell

/** What can be done with one alert of the list. One menu serves them all. */
PopupMenu {
    id: root

    required property AppStore store
    required property bool canDelete
    property string alertID
    property bool alertRead

    signal deleteRequested

    /** Opens it for that alert, at a place of its parent. */
    function openFor(alert: alertRow, x: real, y: real) {
        root.alertID = alert.id
        root.alertRead = alert.read
        root.openAt(root.parent, x, y)
        root.currentIndex = 0
    }

    PopupMenuItem {
        objectName: "alert.row." + root.alertID + ".toggleRead"
        label: root.alertRead ? "Mark as unread" : "Mark as read"
        // What the label says, even if the service has marked it meanwhile.
        onTriggered: root.store.setRead(root.alertID, !root.alertRead)
    }

    PopupMenuSeparator {
        visible: root.canDelete
        height: visible ? implicitHeight : 0
    }

    PopupMenuItem {
        objectName: "alert.row." + root.alertID + ".delete"
        visible: root.canDelete
        height: visible ? implicitHeight : 0
        label: "Delete"
        symbolName: "trash"
        destructive: true
        onTriggered: root.deleteRequested()
    }
}
