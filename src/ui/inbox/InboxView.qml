import QtQuick
import Pingwell

/** The inbox section of the main screen: the alerts, and the one that is open. */
Item {
    id: root

    required property AppStore store
    readonly property bool hasWorkspace: workspaces.active.id.length > 0
    readonly property bool canDelete: root.hasWorkspace && workspaces.active.role !== "viewer"
    readonly property bool isOnRow: list.hasKeyboard && list.currentID.length > 0
    readonly property bool nothingFocused: root.visible && Window.active && keys.nothingFocused

    /** Gives the list the focus. */
    function takeFocus() {
        list.takeFocus()
    }

    /** Scrolls on by so much, except what stands at its top. */
    function shift(distance: real) {
        list.shift(distance)
        detail.shift(distance)
    }

    function deleteAlert(alertID: string) {
        list.letGo(alertID)
        root.store.deleteAlert(alertID)
    }

    /** Gives the focus a place when what had it is gone: an answered ask's button, a field of an ask that is over. */
    function catchFocus() {
        const lostField = keys.typedLast || keys.isDeaf
        if (!lostField || !detail.takeFocus())
            list.catchFocus()
        if (lostField)
            keys.becomeDeaf()
    }

    onNothingFocusedChanged: if (nothingFocused) vacancy.schedule()

    NextTurn {
        id: vacancy

        onCame: if (root.nothingFocused) root.catchFocus()
    }

    WorkspaceListModel {
        id: workspaces

        store: root.store
    }

    Item {
        id: column

        width: 360
        height: root.height

        InboxHeader {
            id: header

            width: parent.width
            store: root.store
            total: list.total
            canSendTestAlert: root.hasWorkspace
        }

        FilterBar {
            id: filters

            anchors.top: header.bottom
            width: parent.width
            store: root.store
        }

        Divider {
            id: line

            anchors.top: filters.bottom
            anchors.topMargin: 6
            width: parent.width
        }

        InboxList {
            id: list

            anchors.top: line.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            store: root.store
            canDelete: root.canDelete
            ignoresReturn: keys.isDeaf
            onEntered: detail.takeFocus()
            onDeleteRequested: alertID => root.deleteAlert(alertID)
        }
    }

    Divider {
        id: middle

        x: column.width
        width: 1
        height: root.height
    }

    AlertDetail {
        id: detail

        anchors.left: middle.right
        anchors.right: parent.right
        height: root.height
        store: root.store
        canDelete: root.canDelete
        takesKeys: keys.takesLetters
        onBackRequested: list.takeFocus()
        onDeleteRequested: alertID => root.deleteAlert(alertID)
    }

    // A click says that the person has seen that the field is gone.
    MouseArea {
        anchors.fill: parent
        enabled: keys.isDeaf
        acceptedButtons: Qt.AllButtons
        onPressed: mouse => {
            keys.isDeaf = false
            mouse.accepted = false
        }
    }

    DeleteSheet {
        id: deletion

        onDeleteRequested: root.deleteAlert(alertID)
    }

    InboxKeys {
        id: keys

        store: root.store
        active: root.visible
        canDelete: root.canDelete
        alertID: root.isOnRow ? list.currentID : detail.openID
        onDeleteRequested: deletion.ask(alertID, root.isOnRow ? list.currentRow.alert.title : detail.openTitle)
        onFiltersRequested: filters.takeFocus()
        onBackRequested: list.hasKeyboard ? root.store.selectedAlertID = "" : list.takeFocus()
    }
}
