pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The reply area of an ask: what it waits for, what was answered, or what became of it. */
Column {
    id: root

    required property AppStore store
    required property alertRow alert
    required property alertTexts texts
    readonly property bool waiting: root.alert.state === "waiting"

    /** Gives the focus to a reply that was not sent; false when there is none. */
    function takeFocus(): bool {
        return unsent.takeFocus()
    }

    spacing: Theme.gap3

    Item {
        objectName: "detail.countdown"
        width: root.width
        implicitHeight: words.height
        visible: root.waiting
        Accessible.role: Accessible.StaticText
        Accessible.name: words.text + ", " + countdown.text

        PlainText {
            id: words

            width: Math.min(implicitWidth, root.width - countdown.width - Theme.gap2)
            text: root.alert.app + " is waiting for your reply"
            color: Theme.accent
            font.weight: Font.Medium
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }

        CountdownLabel {
            id: countdown

            x: words.width + Theme.gap2
            remaining: (root.alert.expiresAt - root.store.now) / 1000
            size: Theme.sizeNote
            Accessible.ignored: true
        }
    }

    When {
        condition: root.alert.state === "answered"
        delegate: AnsweredLabel {
            objectName: "detail.answered"
            width: root.width
            answer: root.texts.answer
        }
    }

    When {
        condition: root.alert.state === "timedOut"
        delegate: TimedOutLabel {
            objectName: "detail.timedOut"
            width: root.width
            message: root.texts.outcome
        }
    }

    UnsentReply {
        id: unsent

        width: root.width
        isOver: !root.alert.canAnswer
        store: root.store
        alertID: root.alert.id
        idPrefix: "detail"
        textSize: Theme.sizeReading
    }

    When {
        condition: root.waiting && !root.alert.canAnswer
        delegate: ViewerNote {
            objectName: "detail.viewerNote"
            width: root.width
            textSize: Theme.sizeBody
        }
    }

    When {
        condition: root.alert.canAnswer && root.alert.acceptsText
        delegate: ReplyComposer {
            width: root.width
            store: root.store
            alert: root.alert
            idPrefix: "detail"
        }
    }

    When {
        condition: root.alert.canAnswer && !root.alert.acceptsText
        delegate: AnswerButtons {
            width: root.width
            alert: root.alert
            idPrefix: "detail"
            buttonHeight: 30
            minimumWidth: 160
            onAnswered: text => root.store.answer(root.alert.id, text)
        }
    }
}
