import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A line between the entries of a menu. */
T.MenuSeparator {
    implicitWidth: 100
    implicitHeight: 9

    contentItem: Item {
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            height: 1
            color: Theme.controlBorder
        }
    }
}
