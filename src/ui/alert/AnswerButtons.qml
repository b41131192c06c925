pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The answers an ask offers, in order; the last one is prominent. Of very many the first ones, and how many there are. */
Flow {
    id: root

    required property alertRow alert
    required property string idPrefix
    required property int buttonHeight
    property int minimumWidth: 64
    readonly property int total: root.alert.actions.length + root.alert.furtherChoices
    readonly property int drawn: root.alert.actionLabels.length

    /** One was chosen; the words are exactly those offered. */
    signal answered(text: string)

    spacing: 6

    Repeater {
        model: root.drawn
        delegate: ActionButton {
            required property int index

            objectName: root.idPrefix + ".action." + index
            width: Math.min(Math.max(implicitWidth, root.minimumWidth), root.width)
            fixedHeight: root.buttonHeight
            label: root.alert.actionLabels[index] ?? ""
            // The labels are cleaned for display: two answers can look the same.
            meaning: root.alert.id + " " + (root.alert.actions[index] ?? "")
            prominent: index === root.total - 1
            onClicked: root.answered(root.alert.actions[index])
        }
    }

    PlainText {
        objectName: root.idPrefix + ".furtherChoices"
        width: root.width
        visible: root.drawn < root.total
        text: "Showing " + root.drawn + " of " + root.total.toLocaleString(Qt.locale("en"), "f", 0) + " choices. "
            + "The others can't be chosen here."
        size: Theme.sizeSmall
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }
}
