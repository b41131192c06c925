import QtQuick
import Pingwell

/** The last line of an inbox row: what an ask waits for or came to, or what a notice says. */
Item {
    id: root

    required property alertRow alert
    required property double now
    readonly property bool waiting: root.alert.state === "waiting"
    readonly property bool timedOut: root.alert.state === "timedOut"
    readonly property bool answered: root.alert.state === "answered"
    readonly property string words: root.answered ? "✓ You replied “" + root.alert.answer + "”"
        : root.timedOut ? root.alert.outcome : root.waiting ? "Needs reply"
        : root.alert.state === "gone" ? "Deleted" : root.alert.summary
    readonly property string text: root.timedOut ? "TIMED OUT, " + root.words
        : root.waiting ? root.words + ", " + countdown.text : root.words

    implicitHeight: Math.max(line.height, countdown.height)

    PlainText {
        id: line

        width: Math.min(implicitWidth, root.width)
        text: root.words
        size: root.alert.state.length > 0 ? Theme.sizeNote : Theme.sizeBody
        color: root.answered ? Theme.answered : root.timedOut ? Theme.timedOut : root.waiting ? Theme.accent : Theme.textSecondary
        font.weight: root.waiting ? Font.Medium : Font.Normal
        Accessible.ignored: true
    }

    CountdownLabel {
        id: countdown

        x: line.width + Theme.gap2
        anchors.verticalCenter: line.verticalCenter
        visible: root.waiting
        // Rows that wait for nothing follow no clock.
        remaining: root.waiting ? (root.alert.expiresAt - root.now) / 1000 : 0
        size: Theme.sizeNote
        Accessible.ignored: true
    }
}
