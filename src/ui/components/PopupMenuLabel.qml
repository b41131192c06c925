import QtQuick
import Pingwell

/** What an entry of a menu shows. */
Item {
    id: root

    required property string label
    required property string symbolName
    required property color ink
    required property color symbolInk

    implicitWidth: words.x + words.implicitWidth + Theme.gap4

    Symbol {
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbolName
        color: root.symbolInk
    }

    PlainText {
        id: words

        x: 28
        width: parent.width - x - Theme.gap2
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
        color: root.ink
        Accessible.ignored: true
    }
}
