import QtQuick
import Pingwell

/** What a key does. */
Item {
    id: root

    required property string keys
    required property string meaning

    implicitWidth: 300
    implicitHeight: 24
    Accessible.role: Accessible.StaticText
    Accessible.name: root.keys + ": " + root.meaning

    Rectangle {
        width: words.width + 2 * 6
        height: 20
        anchors.verticalCenter: parent.verticalCenter
        radius: Theme.radiusSmall
        color: Theme.controlFill
        border.width: 1
        border.color: Theme.controlBorder

        PlainText {
            id: words

            anchors.centerIn: parent
            text: root.keys
            size: Theme.sizeSmall
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    PlainText {
        x: 128
        width: root.width - x
        anchors.verticalCenter: parent.verticalCenter
        text: root.meaning
        color: Theme.textSecondary
        Accessible.ignored: true
    }
}
