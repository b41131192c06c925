import QtQuick
import Pingwell

/** What stands on the card of a server: its symbol, its words and whether it is chosen. */
Item {
    id: root

    required property string symbolName
    required property string title
    required property string subtitle
    required property bool selected

    implicitHeight: words.height

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        name: root.symbolName
        size: 20
        color: root.selected ? Theme.accent : Theme.textSecondary
    }

    Column {
        id: words

        anchors.left: symbol.right
        anchors.leftMargin: Theme.gap3
        anchors.right: mark.left
        anchors.rightMargin: Theme.gap2
        spacing: 2

        PlainText {
            width: parent.width
            text: root.title
            size: Theme.sizeTitle
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            text: root.subtitle
            size: Theme.sizeSmall
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }

    Symbol {
        id: mark

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        name: root.selected ? "checkmark.circle.fill" : "circle"
        color: root.selected ? Theme.accent : Theme.textTertiary
    }
}
