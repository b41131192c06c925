import QtQuick
import Pingwell

/** Lies over the list of alerts and opens the menu of the row that the pointer or the keyboard asks for. */
MenuArea {
    id: root

    required property AppStore store
    required property AlertRows list
    required property AlertListModel alerts
    required property bool canDelete
    readonly property bool isOpen: menu.visible
    readonly property InboxRow currentRow: root.list.currentItem as InboxRow

    signal deleteRequested(alertID: string)

    function open(row: InboxRow, x: real, y: real) {
        if (!row)
            return
        root.list.currentIndex = row.index
        root.list.forceActiveFocus(Qt.OtherFocusReason)
        menu.openFor(row.alert, x, y)
    }

    onMenuRequested: root.open(root.currentRow, width / 3, (root.currentRow?.y ?? 0) - root.list.contentY
                                                           + root.list.rowHeight - Theme.gap2)
    onMenuRequestedAt: (x, y) => {
        root.list.usesKeyboard = false
        const row = root.list.itemAt(x + root.list.contentX, y + root.list.contentY) as InboxRow
        if (row?.takesPointer())
            root.open(row, x, y)
    }

    Connections {
        target: root.alerts

        function onUpdated() {
            if (menu.visible && root.alerts.isGone(menu.alertID))
                menu.close()
        }
    }

    InboxMenu {
        id: menu

        parent: root.list
        store: root.store
        canDelete: root.canDelete
        onDeleteRequested: root.deleteRequested(alertID)
    }
}
