import QtQuick
import Pingwell

/** What the workspace menu shows while it is closed. */
Item {
    id: root

    required property string symbolName
    required property string title
    required property string subtitle
    required property real textSize

    Symbol {
        id: kind

        anchors.verticalCenter: parent.verticalCenter
        name: root.symbolName
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: kind.width + Theme.gap2
        width: root.width - x - chevrons.width - Theme.gap1

        PlainText {
            width: parent.width
            text: root.title
            size: root.textSize
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            visible: root.subtitle.length > 0
            text: root.subtitle
            size: Theme.sizeMeta
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    Symbol {
        id: chevrons

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.up.chevron.down"
        size: 12
        color: Theme.textTertiary
    }
}
