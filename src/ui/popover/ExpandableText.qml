import QtQuick
import Pingwell

/** A text of which only the first lines show until the person asks for all of it. */
Column {
    id: root

    required property string text
    required property real textSize
    property color color: Theme.textSecondary
    property int lines: 6
    property bool expanded: false
    property int weight: Font.Normal
    property real lineHeight: 1.1
    property string identifier

    PlainText {
        id: words

        objectName: root.identifier
        width: root.width
        text: root.text
        size: root.textSize
        color: root.color
        font.weight: root.weight
        lineHeight: root.lineHeight
        wrapMode: Text.Wrap
        maximumLineCount: root.expanded ? 10000 : root.lines
    }

    LinkButton {
        visible: words.truncated || root.expanded
        label: root.expanded ? "Show less" : "Show all"
        textSize: root.textSize
        onClicked: root.expanded = !root.expanded
    }
}
