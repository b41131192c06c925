pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** What became of an ask whose card is still in its place. */
Column {
    id: root

    required property AppStore store
    required property alertRow alert
    required property string idPrefix

    topPadding: 4
    spacing: Theme.gap1

    When {
        condition: root.alert.state === "answered"
        delegate: AnsweredLabel {
            objectName: root.idPrefix + ".answered"
            width: root.width
            answer: root.alert.answer
            textSize: Theme.sizeBody
        }
    }

    When {
        condition: root.alert.state === "timedOut"
        delegate: TimedOutLabel {
            objectName: root.idPrefix + ".timedOut"
            width: root.width
            message: root.alert.outcome
        }
    }

    PlainText {
        objectName: root.idPrefix + ".gone"
        visible: root.alert.state === "gone"
        text: "This ask was deleted."
        color: Theme.textSecondary
    }

    UnsentReply {
        width: root.width
        isOver: true
        store: root.store
        alertID: root.alert.id
        idPrefix: root.idPrefix
    }
}
