pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The alerts of the active workspace through the filter, newest first. */
Item {
    id: root

    required property AppStore store
    required property bool canDelete
    readonly property alias total: alerts.total
    readonly property alias hasKeyboard: list.activeFocus
    readonly property InboxRow currentRow: list.currentItem as InboxRow
    /** The alert that the keyboard is at; empty when it is at none. */
    readonly property string currentID: root.currentRow?.alert.id ?? ""

    /** Gives the list the focus, at the open alert or at its first one. */
    function takeFocus() {
        if (list.currentIndex < 0)
            list.show(alerts.rowOf(root.store.selectedAlertID))
        list.usesKeyboard = true
        list.forceActiveFocus(Qt.OtherFocusReason)
    }

    function shift(distance: real) {
        if (!list.atYBeginning)
            list.contentY = Math.max(list.originY - list.topMargin, list.contentY + distance)
    }

    /** Makes the list ready for the keyboard where nothing else is, without pointing at a row. */
    function catchFocus() {
        list.forceActiveFocus(Qt.OtherFocusReason)
    }

    function openMenu(row: InboxRow, x: real, y: real) {
        if (!row)
            return
        list.currentIndex = row.index
        list.forceActiveFocus(Qt.OtherFocusReason)
        menu.openFor(row.alert, x, y)
    }

    /** Shows the row of an alert that was opened elsewhere. */
    function followSelection() {
        const row = alerts.rowOf(root.store.selectedAlertID)
        if (row >= 0 && row !== list.currentIndex)
            list.show(row)
    }

    Component.onCompleted: selection.schedule()

    // A new filter's rows come first.
    NextTurn {
        id: selection

        onCame: root.followSelection()
    }

    Connections {
        target: root.store

        function onSelectedAlertIDChanged() {
            selection.schedule()
        }
        function onFilterChanged() {
            list.startOver()
        }
        function onActiveWorkspaceIDChanged() {
            list.startOver()
        }
    }

    AlertListModel {
        id: alerts

        store: root.store
        list: AlertListModel.Inbox
        onCountChanged: if (menu.visible && alerts.rowOf(menu.alertID) < 0) menu.close()
    }

    InboxMetrics {
        id: lines
    }

    AlertRows {
        id: list

        objectName: "inbox.list"
        anchors.fill: parent
        store: root.store
        rowHeight: lines.rowHeight
        model: alerts
        Accessible.name: "Alerts"
        onOpened: if (root.currentRow) root.store.selectedAlertID = root.currentID
        Keys.forwardTo: [menuArea]

        delegate: InboxRow {
            id: row

            property bool pooled: false

            width: list.width
            // What waits to be used again is no row.
            visible: !row.pooled
            now: row.pooled ? row.alert.at : list.now
            metrics: lines
            selected: root.store.selectedAlertID === row.alert.id
            keyboardHere: list.usesKeyboard && (row.activeFocus || menu.visible && row.ListView.isCurrentItem)
            onClicked: {
                list.usesKeyboard = false
                list.currentIndex = row.index
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.store.selectedAlertID = row.alert.id
            }
            ListView.onPooled: row.pooled = true
            ListView.onReused: row.pooled = false
        }
    }

    MenuArea {
        id: menuArea

        anchors.fill: list
        onMenuRequested: root.openMenu(root.currentRow, width / 3,
                                       (root.currentRow?.y ?? 0) - list.contentY + list.rowHeight - Theme.gap2)
        onMenuRequestedAt: (x, y) => {
            list.usesKeyboard = false
            root.openMenu(list.itemAt(x + list.contentX, y + list.contentY) as InboxRow, x, y)
        }
    }

    InboxMenu {
        id: menu

        parent: list
        store: root.store
        canDelete: root.canDelete
    }

    PlainText {
        objectName: "inbox.empty"
        y: Theme.gap10
        width: root.width
        horizontalAlignment: Text.AlignHCenter
        visible: alerts.total === 0
        text: "No alerts here."
        color: Theme.textSecondary
    }
}
