pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The choices of what the inbox shows, in a row that scrolls. One stop for the keyboard, which moves within. */
Item {
    id: root

    required property AppStore store

    /** Gives the chips the focus, at the one in force. */
    function takeFocus() {
        list.moveTo(filters.selectedRow)
        list.forceActiveFocus(Qt.TabFocusReason)
    }

    implicitHeight: 28

    InboxFilterModel {
        id: filters

        store: root.store
        onSelectedRowChanged: if (selectedRow >= 0) list.positionViewAtIndex(selectedRow, ListView.Contain)
    }

    RowList {
        id: list

        /** The keyboard was used last, not the pointer. */
        property bool usesKeyboard: true

        function moveTo(row: int) {
            list.usesKeyboard = true
            list.currentIndex = Math.max(0, Math.min(row, list.count - 1))
            list.positionViewAtIndex(list.currentIndex, ListView.Contain)
        }

        objectName: "inbox.filters"
        anchors.fill: parent
        orientation: Qt.Horizontal
        leftMargin: 10
        rightMargin: 10
        topMargin: 3
        spacing: 2
        clip: true
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        activeFocusOnTab: true
        model: filters
        onActiveFocusChanged: if (activeFocus && currentIndex < 0) root.takeFocus()
        Accessible.role: Accessible.List
        Accessible.name: "Filters"
        Keys.onLeftPressed: list.moveTo(currentIndex - 1)
        Keys.onRightPressed: list.moveTo(currentIndex + 1)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End
            if (event.accepted)
                list.moveTo(event.key === Qt.Key_Home ? 0 : list.count - 1)
        }

        delegate: FilterChip {
            keyboardHere: list.usesKeyboard && activeFocus
            onPressed: {
                list.usesKeyboard = false
                list.currentIndex = index
                list.forceActiveFocus(Qt.MouseFocusReason)
            }
            onClicked: filters.choose(chip.id)
        }
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse
        onWheel: event => {
            const last = list.originX - list.leftMargin
                + Math.max(0, list.contentWidth + list.leftMargin + list.rightMargin - list.width)
            list.contentX = Math.max(list.originX - list.leftMargin,
                                     Math.min(last, list.contentX - event.angleDelta.y / 2))
        }
    }

    EdgeFade {
        height: root.height
        visible: !list.atXBeginning
        rotation: 180
    }

    EdgeFade {
        anchors.right: parent.right
        height: root.height
        visible: !list.atXEnd
    }
}
