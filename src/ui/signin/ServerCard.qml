import QtQuick
import QtQuick.Templates as T
import Pingwell

/** One of several servers to choose from. It follows `selected` and asks to be chosen. */
T.RadioButton {
    id: root

    required property string symbolName
    required property string title
    required property string subtitle
    required property bool selected

    signal chosen

    /** An arrow key came here from another card. */
    function chooseByKey() {
        root.forceActiveFocus(Qt.TabFocusReason)
        root.chosen()
    }

    checked: root.selected
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: Theme.gap3
    rightPadding: Theme.gap3
    topPadding: 10
    bottomPadding: 10
    // One stop for the whole choice; the arrow keys move within it.
    focusPolicy: root.selected ? Qt.TabFocus : Qt.NoFocus
    hoverEnabled: true
    onClicked: {
        // First: the card that is left gives up being a stop, which it can't while it has the focus.
        root.forceActiveFocus(Qt.MouseFocusReason)
        root.chosen()
    }
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: root.title + ", " + root.subtitle
    Accessible.description: root.selected ? "selected" : "not selected"

    background: Rectangle {
        radius: Theme.radiusCard
        color: root.selected ? Theme.selection : Theme.controlFill
        border.width: 1
        border.color: root.selected ? Theme.accent : Theme.controlBorder

        PressFill {
            anchors.fill: parent
            control: root
            radius: parent.radius
        }
    }

    contentItem: ServerCardLabel {
        symbolName: root.symbolName
        title: root.title
        subtitle: root.subtitle
        selected: root.selected
    }
}
