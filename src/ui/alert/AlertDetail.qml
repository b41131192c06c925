pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The alert opened in the inbox, or an invitation to open one. */
Item {
    id: root

    required property AppStore store
    required property bool canDelete
    /** The keys that answer act on the open alert. */
    required property bool takesKeys
    readonly property AlertContent open: contents.count > 0 ? contents.itemAt(0) as AlertContent : null
    /** Of the alert that is shown; empty when there is none. */
    readonly property string openID: root.open?.alert.id ?? ""
    readonly property string openTitle: root.open?.alert.title ?? ""
    readonly property bool hasKeyboard: root.isWithin(root.Window.activeFocusItem)

    signal deleteRequested(alertID: string)
    /** The person wants back to the list, from a text that keeps the shortcut for that to itself. */
    signal backRequested

    Keys.onEscapePressed: root.backRequested()

    /** Puts the keyboard into the open alert, at nothing that a key could press; false when no alert is open. */
    function takeFocus(): bool {
        if (!root.open)
            return false
        // Not one of the texts: those keep the keys that answer to themselves.
        if (!root.open.takeFocus())
            area.forceActiveFocus(Qt.TabFocusReason)
        return true
    }

    function isWithin(item: Item): bool {
        for (let at = item; at; at = at.parent) {
            if (at === root)
                return true
        }
        return false
    }

    function shift(distance: real) {
        if (!area.atYBeginning)
            area.shift(distance)
    }

    Connections {
        target: root.store

        function onSelectedAlertIDChanged() {
            area.contentY = 0
        }
    }

    AlertListModel {
        id: selected

        store: root.store
        list: AlertListModel.Selected
    }

    ScrollArea {
        id: area

        objectName: "detail"
        anchors.fill: parent
        activeFocusOnTab: true
        visible: selected.count > 0
        contentHeight: content.height
        Accessible.role: Accessible.Pane
        Accessible.name: "Alert"

        Column {
            id: content

            x: Theme.gap7
            width: Math.min(area.width - 2 * Theme.gap7, Theme.contentWidth)
            topPadding: Theme.gap5
            bottomPadding: Theme.gap5

            Repeater {
                id: contents

                model: selected
                delegate: AlertContent {
                    width: content.width
                    store: root.store
                    everything: selected.everything(alert.id)
                    canDelete: root.canDelete
                    takesKeys: root.takesKeys
                    takesDigits: root.takesKeys && root.hasKeyboard
                    onDeleteRequested: root.deleteRequested(alert.id)
                }
            }
        }
    }

    FocusRing {
        target: area
        anchors.margins: 2
        shown: area.activeFocus
    }

    Column {
        objectName: "detail.empty"
        anchors.centerIn: parent
        visible: selected.count === 0
        spacing: Theme.gap2
        Accessible.role: Accessible.StaticText
        Accessible.name: words.text

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "tray"
            size: 28
            color: Theme.textTertiary
        }

        PlainText {
            id: words

            text: "Select an alert"
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }
}
