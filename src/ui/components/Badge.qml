import QtQuick
import Pingwell

/** A short text in a small capsule. */
Rectangle {
    id: root

    required property string text
    property color tint: Theme.accentFill
    property color ink: Theme.textOnAccent

    implicitWidth: Math.max(words.implicitWidth + 2 * 6, implicitHeight)
    implicitHeight: 16
    radius: height / 2
    color: root.tint
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    PlainText {
        id: words

        anchors.centerIn: parent
        text: root.text
        size: Theme.sizeAge
        color: root.ink
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }
}
