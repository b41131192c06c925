import QtQuick
import Pingwell

/** The program's mark. */
Rectangle {
    id: root

    property int size: 24

    width: root.size
    height: root.size
    radius: Math.round(root.size * 0.26)
    color: Theme.accentFill
    Accessible.ignored: true

    Symbol {
        anchors.centerIn: parent
        size: Math.round(root.size * 0.15) * 4
        name: "bell.fill"
        color: Theme.textOnAccent
    }
}
