pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** An ask that waits, with what it takes to answer it. */
FocusScope {
    id: root

    required property AppStore store
    required property alertRow alert
    readonly property bool waiting: root.alert.state === "waiting"
    readonly property string identifier: "popover.ask." + root.alert.id
    readonly property string origin: root.alert.app + " · " + TimeText.shortAge(root.alert.at, root.store.now)

    // A card whose ask is over is still there because the list is held: then it gets no lower.
    property real leastHeight: 0

    /** The person answers it here. */
    signal answering

    function answer(text: string) {
        root.answering()
        root.store.answer(root.alert.id, text)
    }

    objectName: root.identifier
    implicitHeight: Math.max(root.leastHeight, content.height + 2 * 9)
    onWaitingChanged: root.leastHeight = root.waiting ? 0 : root.height
    Accessible.role: Accessible.Grouping
    Accessible.name: root.origin + ", " + root.alert.whole.title + ", " + root.alert.whole.body

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.card
        border.width: 1
        border.color: Theme.border
        Accessible.ignored: true
    }

    Column {
        id: content

        x: 9
        y: 9
        width: root.width - 2 * 9
        spacing: 3

        AskCardOrigin {
            width: parent.width
            alert: root.alert
            origin: root.origin
            now: root.store.now
            countdownIdentifier: root.identifier + ".countdown"
        }

        ExpandableText {
            identifier: root.identifier + ".title"
            width: parent.width
            text: root.alert.whole.title
            textSize: Theme.sizeCardTitle
            color: Theme.textPrimary
            weight: Font.DemiBold
            lineHeight: 1
        }

        ExpandableText {
            width: parent.width
            visible: root.alert.whole.body.length > 0
            text: root.alert.whole.body
            textSize: Theme.sizeSmall
        }

        When {
            condition: !root.waiting
            delegate: AskOutcome {
                width: content.width
                store: root.store
                alert: root.alert
                idPrefix: root.identifier
            }
        }

        When {
            condition: root.waiting && !root.alert.canAnswer
            delegate: ViewerNote {
                objectName: root.identifier + ".viewerNote"
                width: content.width
                topPadding: 2
            }
        }

        When {
            condition: root.alert.canAnswer && root.alert.acceptsText
            delegate: ReplyComposer {
                width: content.width
                topPadding: 4
                store: root.store
                alert: root.alert
                idPrefix: root.identifier
                compact: true
                onSending: root.answering()
            }
        }

        When {
            condition: root.alert.canAnswer && !root.alert.acceptsText
            delegate: AnswerButtons {
                width: content.width
                topPadding: 5
                alert: root.alert
                idPrefix: root.identifier
                buttonHeight: 24
                onAnswered: text => root.answer(text)
            }
        }
    }
}
