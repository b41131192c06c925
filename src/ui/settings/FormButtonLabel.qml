import QtQuick
import Pingwell

/** What a row of a form shows that does something. */
Item {
    id: root

    required property string label
    required property string symbolName
    required property color ink
    required property color symbolInk

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        name: root.symbolName
        color: root.symbolInk
    }

    PlainText {
        x: symbol.width + Theme.gap2 + 2
        width: parent.width - x
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
        color: root.ink
        Accessible.ignored: true
    }
}
