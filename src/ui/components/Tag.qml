import QtQuick
import Pingwell

/** A word on a small coloured ground. */
Rectangle {
    id: root

    required property string text
    required property color ink
    property bool compact: false

    implicitWidth: words.implicitWidth + 2 * (root.compact ? 5 : 7)
    implicitHeight: root.compact ? 16 : 20
    radius: Theme.radiusSmall
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    PlainText {
        id: words

        anchors.centerIn: parent
        text: root.text
        size: root.compact ? Theme.sizeAge : Theme.sizeSmall
        color: root.ink
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }
}
