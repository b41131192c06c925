import QtQuick
import Pingwell

/** One choice of what the inbox shows, and how much that is. */
Pressable {
    id: root

    required property filterChip chip
    required property int index
    property bool keyboardHere: false

    objectName: "filter." + root.chip.id
    implicitWidth: content.width + leftPadding + rightPadding
    implicitHeight: content.height + topPadding + bottomPadding
    leftPadding: 10
    rightPadding: 10
    topPadding: Theme.gap1
    bottomPadding: Theme.gap1
    // The chips are one stop; the arrow keys move among them.
    focusPolicy: Qt.NoFocus
    Accessible.name: root.chip.label + ", " + root.chip.count
    Accessible.description: root.chip.selected ? "selected" : "not selected"
    Accessible.selectable: true
    Accessible.selected: root.chip.selected
    Accessible.focusable: true

    background: ChoiceFill {
        radius: height / 2
        control: root
        selected: root.chip.selected
        keyboardHere: root.keyboardHere
    }

    Item {
        id: content

        x: root.leftPadding
        y: root.topPadding
        width: label.width + 5 + count.width
        height: label.height

        PlainText {
            id: label

            // As wide as when it is selected, so that its neighbours stay where they are.
            width: Math.min(Math.ceil(metrics.advanceWidth) + 1, 180)
            text: root.chip.label
            font.weight: root.chip.selected ? Font.DemiBold : Font.Normal
            color: root.chip.selected || root.hovered ? Theme.textPrimary : Theme.textSecondary
            Accessible.ignored: true
        }

        PlainText {
            id: count

            x: label.width + 5
            text: root.chip.count
            color: root.chip.selected ? Theme.accent : Theme.textTertiary
            Accessible.ignored: true
        }

        TextMetrics {
            id: metrics

            font.pointSize: label.font.pointSize
            font.weight: Font.DemiBold
            text: root.chip.label
        }
    }
}
