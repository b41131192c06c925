import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A scroll bar that takes little room and widens under the pointer. */
T.ScrollBar {
    id: root

    implicitWidth: root.hovered || root.pressed ? 8 : 5
    padding: 1
    minimumSize: 0.08
    visible: root.size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        radius: 3
        color: Theme.scrollThumb
    }
}
