import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A scroll bar that takes little room and widens under the pointer. */
T.ScrollBar {
    id: root

    implicitWidth: 12
    padding: 3
    minimumSize: 0.08
    visible: root.size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: root.hovered || root.pressed ? 6 : 4
        radius: 3
        color: Theme.scrollThumb
    }
}
