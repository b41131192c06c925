pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The reply area of an ask: what it waits for, what was answered, or what became of it. */
Column {
    id: root

    required property AppStore store
    required property alertRow alert
    readonly property bool waiting: root.alert.state === "waiting"

    spacing: Theme.gap3

    Row {
        objectName: "detail.countdown"
        visible: root.waiting
        spacing: Theme.gap2
        Accessible.role: Accessible.StaticText
        Accessible.name: words.text + ", " + countdown.text

        PlainText {
            id: words

            text: root.alert.app + " is waiting for your reply"
            color: Theme.accent
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        CountdownLabel {
            id: countdown

            anchors.verticalCenter: words.verticalCenter
            remaining: (root.alert.expiresAt - root.store.now) / 1000
            size: Theme.sizeNote
            Accessible.ignored: true
        }
    }

    Loader {
        width: root.width
        sourceComponent: root.alert.state === "answered" ? answered : root.alert.state === "timedOut" ? timedOut
            : !root.waiting ? null : !root.alert.canAnswer ? note : root.alert.acceptsText ? composer : choices
    }

    Component {
        id: answered

        AnsweredLabel {
            objectName: "detail.answered"
            answer: root.alert.answer
        }
    }

    Component {
        id: timedOut

        TimedOutLabel {
            objectName: "detail.timedOut"
            message: root.alert.outcome
        }
    }

    Component {
        id: note

        ViewerNote {
            objectName: "detail.viewerNote"
            textSize: Theme.sizeBody
        }
    }

    Component {
        id: composer

        ReplyComposer {
            store: root.store
            alert: root.alert
            idPrefix: "detail"
        }
    }

    Component {
        id: choices

        AnswerButtons {
            alert: root.alert
            idPrefix: "detail"
            buttonHeight: 30
            minimumWidth: 160
            onAnswered: text => root.store.answer(root.alert.id, text)
        }
    }
}
