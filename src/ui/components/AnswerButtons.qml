pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The answers an ask offers, in order; the last one is prominent. */
Flow {
    id: root

    required property alertRow alert
    required property string idPrefix
    required property int buttonHeight
    property int minimumWidth: 64

    /** One was chosen; the words are exactly those offered. */
    signal answered(text: string)

    spacing: 6

    Repeater {
        model: root.alert.actionLabels
        delegate: ActionButton {
            required property int index
            required property string modelData

            objectName: root.idPrefix + ".action." + index
            width: Math.min(Math.max(implicitWidth, root.minimumWidth), root.width)
            fixedHeight: root.buttonHeight
            label: modelData
            prominent: index === root.alert.actionLabels.length - 1
            onClicked: root.answered(root.alert.actions[index])
        }
    }
}
