import QtQuick
import Pingwell

/** What a picker shows while it is closed. */
Item {
    id: root

    required property string label
    required property real textSize

    implicitWidth: Math.ceil(words.implicitWidth) + Theme.gap2 + chevrons.width

    PlainText {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        width: root.width - chevrons.width - Theme.gap1
        text: root.label
        size: root.textSize
        Accessible.ignored: true
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
