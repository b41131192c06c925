import QtQuick
import Pingwell

/** A button drawn as a link. */
Pressable {
    id: root

    required property string label
    property real textSize: Theme.sizeBody

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    meaning: root.label
    topPadding: 2
    bottomPadding: 2
    Accessible.name: root.label

    contentItem: PlainText {
        text: root.label
        size: root.textSize
        color: Theme.accent
        font.underline: root.hovered || root.down
        Accessible.ignored: true
    }

    background: Item {
        FocusRing {
            target: parent
            radius: Theme.radiusSmall
            shown: root.visualFocus
        }
    }
}
