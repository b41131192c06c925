import QtQuick
import Pingwell

/** From whom an alert is, under which topic, how old. */
Item {
    id: root

    required property alertRow alert
    required property string age

    readonly property bool timedOut: root.alert.state === "timedOut"
    readonly property real placeForWords: (root.timedOut ? tag.x : age.x) - 6

    implicitHeight: app.height

    PlainText {
        id: app

        width: Math.min(implicitWidth, root.placeForWords)
        text: root.alert.app
        size: Theme.sizeSmall
        color: Theme.textSecondary
        Accessible.ignored: true
    }

    PlainText {
        x: app.width + 6
        width: Math.max(0, root.placeForWords - x)
        text: "#" + root.alert.topic
        size: Theme.sizeSmall
        color: Theme.textTertiary
        Accessible.ignored: true
    }

    // Here and not in the line below, which is just wide enough for what became of the ask.
    TimedOutTag {
        id: tag

        anchors.right: age.left
        anchors.rightMargin: 6
        anchors.verticalCenter: age.verticalCenter
        visible: root.timedOut
        compact: true
        Accessible.ignored: true
    }

    PlainText {
        id: age

        anchors.right: parent.right
        text: root.age
        size: Theme.sizeSmall
        color: Theme.textTertiary
        Accessible.ignored: true
    }
}
