import QtQuick
import Pingwell

/** The top line of an ask's card: how important, from whom, how old, how long still. */
Item {
    id: root

    required property alertRow alert
    required property string origin
    required property double now
    required property string countdownIdentifier

    implicitHeight: Math.max(words.height, countdown.height)

    Dot {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        color: Theme.priorityDot(root.alert.priority)
    }

    PlainText {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        x: dot.width + 5
        width: countdown.x - x - 5
        text: root.origin
        size: Theme.sizeMeta
        color: Theme.textSecondary
    }

    CountdownLabel {
        id: countdown

        objectName: root.countdownIdentifier
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: root.alert.state === "waiting"
        remaining: (root.alert.expiresAt - root.now) / 1000
    }
}
