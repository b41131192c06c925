pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** What scrolls in the panel: the asks that wait, then what else came today. */
ScrollArea {
    id: root

    required property AppStore store
    /** How many asks are drawn at first, and how many more when the end of them comes near. */
    readonly property int batch: 10

    /** The person wants to see an alert in the main window. */
    signal alertRequested(alertID: string)

    contentHeight: column.height
    onContentYChanged: {
        if (asks.count < asks.total && contentY + height > askList.y + askList.height - height)
            asks.limit = asks.count + root.batch
    }

    Column {
        id: column

        x: 5
        width: root.width - 10
        topPadding: Theme.gap1
        bottomPadding: Theme.gap2

        SymbolLabel {
            objectName: "popover.needsReply.empty"
            x: 6
            width: parent.width - 12
            visible: asks.total === 0
            symbolName: "checkmark.circle"
            text: "You're all caught up"
        }

        SectionLabel {
            objectName: "popover.needsReply.header"
            x: 6
            bottomPadding: Theme.gap1 + 2
            visible: asks.total > 0
            text: "Needs reply · " + asks.total
        }

        Column {
            id: askList

            width: parent.width
            spacing: Theme.gap2

            Repeater {
                model: asks
                delegate: AskCard {
                    property real lastY: y

                    width: askList.width
                    store: root.store
                    // A question that arrives above the one being answered does not push it away.
                    onYChanged: {
                        if (activeFocus)
                            root.shift(y - lastY)
                        lastY = y
                    }
                }
            }
        }

        SectionLabel {
            objectName: "popover.today.header"
            x: 6
            topPadding: Theme.gap2
            bottomPadding: Theme.gap1
            text: root.store.focusMode ? "Today · Focus" : "Today"
        }

        PlainText {
            objectName: "popover.today.empty"
            x: 6
            bottomPadding: Theme.gap1
            visible: today.total === 0
            text: "Nothing yet today."
            size: Theme.sizeSmall
            color: Theme.textSecondary
        }

        Repeater {
            model: today
            delegate: TodayRow {
                width: column.width
                now: root.store.now
                onClicked: root.alertRequested(alert.id)
            }
        }

        LeftOutNote {
            x: 6
            width: parent.width - 12
            topPadding: Theme.gap2
            store: root.store
        }
    }

    // Declared last, and so filled first: the column knows its height before the panel has been drawn.
    AlertListModel {
        id: asks

        store: root.store
        list: AlertListModel.NeedsReply
        limit: root.batch
    }

    AlertListModel {
        id: today

        store: root.store
        list: AlertListModel.Today
        limit: 6
    }
}
