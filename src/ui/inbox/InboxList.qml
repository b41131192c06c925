pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The alerts of the active workspace through the filter, newest first. */
Item {
    id: root

    required property AppStore store
    required property bool canDelete
    /** Return is not meant for the list. */
    required property bool ignoresReturn
    readonly property alias total: alerts.total
    readonly property alias hasKeyboard: list.activeFocus
    readonly property InboxRow currentRow: list.currentItem as InboxRow
    /** The alert that the keyboard is at; empty when it is at none. */
    readonly property string currentID: root.currentRow?.alert.id ?? ""
    // What is new joins below the row that is pointed at, that the keyboard is at, or whose menu is open.
    readonly property int pointedRows: hold.isPointedAt
        ? Math.floor((hold.reach + list.contentY - list.originY) / list.rowHeight) + 1 : 0
    readonly property int currentRows: menus.isOpen || (list.activeFocus && list.usesKeyboard) ? list.currentIndex + 1 : 0

    /** The person wants to go into the open alert. */
    signal entered
    signal deleteRequested(alertID: string)

    /** Gives the list the focus, at the open alert or at its first one. */
    function takeFocus() {
        if (list.currentIndex < 0)
            list.show(alerts.rowOf(root.store.selectedAlertID))
        list.usesKeyboard = true
        list.forceActiveFocus(Qt.OtherFocusReason)
    }

    /** The person deletes that alert: its row is not held. */
    function letGo(alertID: string) {
        alerts.letGo(alertID)
    }

    function open() {
        if (!root.currentRow || root.ignoresReturn)
            return
        if (root.store.selectedAlertID === root.currentID)
            root.entered()
        else
            root.store.selectedAlertID = root.currentID
    }

    function shift(distance: real) {
        if (!list.atYBeginning)
            list.contentY = Math.max(list.originY - list.topMargin, list.contentY + distance)
    }

    /** Makes the list ready for the keyboard where nothing else is, without pointing at a row. */
    function catchFocus() {
        list.forceActiveFocus(Qt.OtherFocusReason)
    }

    AlertListModel {
        id: alerts

        store: root.store
        list: AlertListModel.Inbox
        heldRows: Math.max(root.pointedRows, root.currentRows)
    }

    ListHold {
        id: hold

        area: list
        viewport: list
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
        onOpened: root.open()
        Keys.forwardTo: [menus]

        delegate: InboxRow {
            id: row

            property bool pooled: false

            width: list.width
            // What waits to be used again is no row.
            visible: !row.pooled
            now: row.pooled ? row.alert.at : list.now
            metrics: lines
            selected: root.store.selectedAlertID === row.alert.id
            keyboardHere: list.usesKeyboard && (row.activeFocus || menus.isOpen && row.ListView.isCurrentItem)
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

    InboxRowMenus {
        id: menus

        anchors.fill: list
        store: root.store
        list: list
        alerts: alerts
        canDelete: root.canDelete
        onDeleteRequested: alertID => root.deleteRequested(alertID)
    }

    SelectionInList {
        store: root.store
        list: list
        alerts: alerts
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
