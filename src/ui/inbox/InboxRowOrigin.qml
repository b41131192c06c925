import QtQuick
import Pingwell

/** From whom an alert is, under which topic, how old. */
Item {
    id: root

    required property alertRow alert
    required property string age

    implicitHeight: app.height

    PlainText {
        id: app

        width: Math.min(implicitWidth, age.x - 6)
        text: root.alert.app
        size: Theme.sizeSmall
        color: Theme.textSecondary
        Accessible.ignored: true
    }

    PlainText {
        x: app.width + 6
        width: Math.max(0, age.x - x - 6)
        text: "#" + root.alert.topic
        size: Theme.sizeSmall
        color: Theme.textTertiary
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
