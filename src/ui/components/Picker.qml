pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * A button that shows the current one of several choices and opens the menu of all. It follows `current` and asks for a
 * change; it never changes by itself. The entries are "<objectName>.<value>".
 */
Pressable {
    id: root

    required property string label
    /** The words of the choices, and as many labels in the same order. */
    required property list<string> values
    required property list<string> labels
    /** The word of the choice that holds. */
    required property string current
    property real textSize: Theme.sizeBody
    readonly property string shownLabel: root.labels[root.values.indexOf(root.current)] ?? ""
    // What the menu offers while it is open: a choice or a refresh must not take entries away under the pointer.
    property list<string> openValues
    property list<string> openLabels

    signal chosen(value: string)

    function open() {
        root.openValues = root.values
        root.openLabels = root.labels
        // The keyboard goes on from here, also when a pointer opened the menu.
        if (!root.activeFocus)
            root.forceActiveFocus(Qt.MouseFocusReason)
        menu.openAt(root.openValues.indexOf(root.current))
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 28
    leftPadding: Theme.gap2 + 2
    rightPadding: Theme.gap2
    onClicked: menu.visible ? menu.close() : root.open()
    Keys.onUpPressed: root.open()
    Keys.onDownPressed: root.open()
    Accessible.role: Accessible.ComboBox
    Accessible.name: root.label
    Accessible.description: root.shownLabel

    background: ButtonFill {
        control: root
    }

    contentItem: PickerLabel {
        label: root.shownLabel
        textSize: root.textSize
    }

    PopupMenu {
        id: menu

        function openAt(index: int) {
            menu.currentIndex = index
            menu.open()
            const list = menu.contentItem as ListView
            list.forceLayout()
            list.positionViewAtIndex(Math.max(index, 0), ListView.Contain)
        }

        x: root.width - width
        y: root.height + 4
        width: Math.max(root.width, implicitWidth)
        height: Math.min(implicitHeight, 296)
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
        onClosed: {
            root.openValues = []
            root.openLabels = []
        }

        Instantiator {
            model: root.openValues.length
            onObjectAdded: (index, object) => menu.insertItem(index, object as PopupMenuItem)
            onObjectRemoved: (index, object) => menu.removeItem(object as PopupMenuItem)
            delegate: PopupMenuItem {
                required property int index
                readonly property string value: root.openValues[index] ?? ""

                objectName: root.objectName + "." + value
                label: root.openLabels[index] ?? ""
                chosen: value === root.current
                symbolName: chosen ? "checkmark" : ""
                onTriggered: if (!chosen) root.chosen(value)
            }
        }
    }
}
