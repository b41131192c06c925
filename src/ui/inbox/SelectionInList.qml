import QtQuick
import Pingwell

/** Keeps the list of alerts at the one that is open, wherever it was opened, and begins at the top with other alerts. */
Item {
    id: root

    required property AppStore store
    required property AlertRows list
    required property AlertListModel alerts

    Component.onCompleted: selection.schedule()

    // A new filter's rows come first.
    NextTurn {
        id: selection

        onCame: {
            const row = root.alerts.rowOf(root.store.selectedAlertID)
            if (row >= 0 && row !== root.list.currentIndex)
                root.list.show(row)
        }
    }

    Connections {
        target: root.store

        function onSelectedAlertIDChanged() {
            selection.schedule()
        }
        function onFilterChanged() {
            root.list.startOver()
        }
        function onActiveWorkspaceIDChanged() {
            root.list.startOver()
        }
    }
}
