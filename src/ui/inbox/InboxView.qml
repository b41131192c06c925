import QtQuick
import Pingwell

/** The inbox section of the main screen: the alerts, and the one that is open. */
Item {
    id: root

    required property AppStore store
    readonly property bool hasWorkspace: workspaces.active.id.length > 0
    readonly property bool canDelete: root.hasWorkspace && workspaces.active.role !== "viewer"
    readonly property Item focusedItem: Window.activeFocusItem
    readonly property bool nothingFocused: root.visible && Window.active
        && (root.focusedItem === null || root.focusedItem === Window.contentItem)

    /** Gives the list the focus. */
    function takeFocus() {
        list.takeFocus()
    }

    /** Scrolls on by so much, except what stands at its top. */
    function shift(distance: real) {
        list.shift(distance)
        detail.shift(distance)
    }

    // What had the focus is gone, an answered ask's button for one.
    onNothingFocusedChanged: if (nothingFocused) vacancy.schedule()

    NextTurn {
        id: vacancy

        onCame: if (root.nothingFocused) list.catchFocus()
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
    }

    InboxKeys {
        id: keys

        store: root.store
        active: root.visible
        alertID: list.hasKeyboard && list.currentID.length > 0 ? list.currentID : root.store.selectedAlertID
        onFiltersRequested: filters.takeFocus()
        onBackRequested: list.hasKeyboard ? root.store.selectedAlertID = "" : list.takeFocus()
    }
}
