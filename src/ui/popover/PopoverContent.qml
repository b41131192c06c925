pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/**
 * What scrolls in the panel: the asks that wait, then what else came today. Nothing in it moves while the person is about
 * to press something: a new ask joins below the others, or, where that would push away what is pointed at, waits.
 */
ScrollArea {
    id: root

    required property AppStore store
    /**
     * How many asks are drawn at first, and how many more when the end of them comes near; fewer when those offer that
     * many choices. So many choices fill the panel, and no more can be drawn in one go without a pause.
     */
    readonly property int batch: 10
    readonly property int choicesOfBatch: 80
    /** Held rows: all that are shown. */
    readonly property int all: 1000000
    readonly property bool isHeld: askHold.isHeld || todayHold.isHeld

    /** The person wants to see an alert in the main window. */
    signal alertRequested(alertID: string)

    contentHeight: column.height
    onContentYChanged: {
        if (asks.count < asks.total && contentY + height > askList.y + askList.height - height) {
            asks.limit = asks.count + root.batch
            asks.choiceLimit = asks.choices() + root.choicesOfBatch
        }
    }

    Column {
        id: column

        // In line with the panel's head, which leaves the scroll bar room beside the cards.
        x: Theme.gap3 - 1
        width: root.width - 2 * x
        topPadding: Theme.gap1
        bottomPadding: Theme.gap2

        // Both are of one height: the first ask that is counted moves nothing.
        Item {
            width: parent.width
            height: Math.max(caughtUp.implicitHeight, header.implicitHeight)

            SymbolLabel {
                id: caughtUp

                objectName: "popover.needsReply.empty"
                width: parent.width
                visible: asks.total === 0
                symbolName: "checkmark.circle"
                text: "You're all caught up"
            }

            SectionLabel {
                id: header

                objectName: "popover.needsReply.header"
                bottomPadding: Theme.gap1 + 2
                visible: asks.total > 0
                text: "Needs reply · " + asks.total
            }
        }

        Column {
            id: askList

            width: parent.width
            spacing: Theme.gap2

            Repeater {
                model: asks
                delegate: AskCard {
                    width: askList.width
                    store: root.store
                    onAnswering: asks.letGo(alert.id)
                }
            }
        }

        SectionLabel {
            objectName: "popover.today.header"
            topPadding: Theme.gap2
            bottomPadding: Theme.gap1
            text: root.store.focusMode ? "Today · Focus" : "Today"
        }

        PlainText {
            objectName: "popover.today.empty"
            bottomPadding: Theme.gap1
            visible: today.total === 0
            text: "Nothing yet today."
            size: Theme.sizeSmall
            color: Theme.textSecondary
        }

        Column {
            id: todayList

            x: -Theme.gap1
            width: parent.width - 2 * x

            Repeater {
                model: today
                delegate: TodayRow {
                    width: todayList.width
                    now: root.store.now
                    onClicked: root.alertRequested(alert.id)
                }
            }
        }

        LeftOutNote {
            width: parent.width
            topPadding: Theme.gap2
            store: root.store
        }
    }

    ListHold {
        id: askHold

        area: askList
        viewport: root
    }

    ListHold {
        id: todayHold

        area: todayList
        viewport: root
    }

    // Declared last, and so filled first: the column knows its height before the panel has been drawn.
    AlertListModel {
        id: asks

        store: root.store
        list: AlertListModel.NeedsReply
        limit: root.batch
        choiceLimit: root.choicesOfBatch
        heldRows: root.isHeld ? root.all : 0
        takesNewRows: !todayHold.isHeld
    }

    AlertListModel {
        id: today

        store: root.store
        list: AlertListModel.Today
        limit: 6
        heldRows: todayHold.isHeld ? root.all : 0
    }
}
