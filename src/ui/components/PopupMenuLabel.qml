import QtQuick
import Pingwell

/** What an entry of a menu shows. */
Item {
    id: root

    required property string label
    required property string symbolName
    required property color ink
    required property color symbolInk
    property bool opensMenu: false
    readonly property real edge: root.opensMenu ? Theme.gap2 + chevron.width : Theme.gap2

    implicitWidth: words.x + words.implicitWidth + edge + Theme.gap2

    Symbol {
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbolName
        color: root.symbolInk
    }

    PlainText {
        id: words

        x: 28
        width: parent.width - x - root.edge
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
        color: root.ink
        Accessible.ignored: true
    }

    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        visible: root.opensMenu
        name: "chevron.right"
        size: 12
    }
}
