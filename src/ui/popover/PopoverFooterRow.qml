import QtQuick
import Pingwell

/** A row of the panel's foot, with its shortcut. */
Pressable {
    id: root

    required property string label
    required property string hint

    implicitHeight: content.implicitHeight + topPadding + bottomPadding
    leftPadding: Theme.gap3 - 1
    rightPadding: Theme.gap3 - 1
    topPadding: 7
    bottomPadding: 7
    Accessible.name: root.label + ", " + root.hint

    background: Item {
        PressFill {
            anchors.fill: parent
            anchors.leftMargin: Theme.gap1 + 1
            anchors.rightMargin: Theme.gap1 + 1
            control: root
        }
    }

    Item {
        id: content

        x: root.leftPadding
        y: root.topPadding
        width: root.availableWidth
        implicitHeight: words.height

        PlainText {
            id: words

            text: root.label
            Accessible.ignored: true
        }

        PlainText {
            anchors.right: parent.right
            anchors.baseline: words.baseline
            text: root.hint
            size: Theme.sizeSmall
            color: Theme.textTertiary
            Accessible.ignored: true
        }
    }
}
