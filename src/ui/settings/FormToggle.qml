import QtQuick
import Pingwell

/** A row of a form that is a switch; all of it can be pressed. */
ToggleSwitch {
    id: root

    implicitHeight: 40
    width: parent?.width ?? implicitWidth
    leftPadding: Theme.gap4
    rightPadding: Theme.gap4
    textSize: Theme.sizeBody
    color: Theme.textPrimary

    background: Item {
        FormDivider {
            visible: root.y > 0
        }
    }
}
