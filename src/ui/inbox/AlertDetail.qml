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
                model: selected
                delegate: AlertContent {
                    width: content.width
                    store: root.store
                    everything: selected.everything(alert.id)
                    canDelete: root.canDelete
                    takesKeys: root.takesKeys
                }
            }
        }
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
