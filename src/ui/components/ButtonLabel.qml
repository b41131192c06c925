import QtQuick
import Pingwell

/** The words of a button in its middle, after its symbol where it has one. */
Item {
    id: root

    required property string label
    required property string symbolName
    required property real textSize
    required property color ink
    property bool wraps: false
    property alias spacing: content.spacing
    property alias lineCount: words.lineCount

    implicitWidth: words.implicitWidth + (root.symbolName.length > 0 ? symbol.width + content.spacing : 0)
    implicitHeight: Math.max(words.implicitHeight, symbol.height)

    Row {
        id: content

        anchors.centerIn: parent

        Symbol {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbolName.length > 0
            name: root.symbolName
            color: root.ink
        }

        PlainText {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - x)
            text: root.label
            size: root.textSize
            font.weight: Font.Medium
            color: root.ink
            wrapMode: root.wraps ? Text.Wrap : Text.NoWrap
            Accessible.ignored: true
        }
    }
}
