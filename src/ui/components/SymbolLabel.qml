import QtQuick
import Pingwell

/** A symbol before a text that may take several lines. */
Item {
    id: root

    required property string symbolName
    required property string text
    property color color: Theme.textSecondary
    property real textSize: Theme.sizeSmall
    property int symbolSize: 16
    property int weight: Font.Normal
    property int maximumLines: 6
    property int topPadding: 0

    implicitWidth: words.x + words.implicitWidth
    implicitHeight: root.topPadding + Math.max(words.height, symbol.height)
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    FontMetrics {
        id: metrics

        font: words.font
    }

    Symbol {
        id: symbol

        y: root.topPadding + Math.round((Math.max(metrics.height, root.symbolSize) - height) / 2)
        name: root.symbolName
        size: root.symbolSize
        color: root.color
    }

    PlainText {
        id: words

        x: root.symbolSize + (root.symbolSize > 12 ? 6 : 4)
        y: root.topPadding + Math.max(0, Math.round((root.symbolSize - metrics.height) / 2))
        width: root.width - x
        text: root.text
        size: root.textSize
        color: root.color
        font.weight: root.weight
        wrapMode: Text.Wrap
        maximumLineCount: root.maximumLines
        Accessible.ignored: true
    }
}
