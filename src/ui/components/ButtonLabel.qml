import QtQuick
import Pingwell

/** The words of a button in its middle, after its symbol where it has one. */
Item {
    id: root

    required property string label
    required property string symbolName
    required property real textSize
    required property color ink
    property alias spacing: content.spacing

    implicitWidth: content.implicitWidth
    implicitHeight: content.implicitHeight

    Row {
        id: content

        anchors.centerIn: parent

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbolName.length > 0
            name: root.symbolName
            color: root.ink
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - x)
            text: root.label
            size: root.textSize
            font.weight: Font.Medium
            color: root.ink
            Accessible.ignored: true
        }
    }
}
