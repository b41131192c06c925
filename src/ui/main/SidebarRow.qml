import QtQuick
import Pingwell

/** One section of the main screen, to choose. */
Pressable {
    id: root

    required property AppStore store
    /** Its raw word. */
    required property string section
    required property string symbolName
    /** Shown unless it is 0. */
    property int badge: 0
    readonly property bool selected: root.store.section === root.section
    readonly property string title: root.section.charAt(0).toUpperCase() + root.section.substring(1)

    objectName: "sidebar." + root.section
    implicitHeight: 30
    // The rows are one stop; the arrow keys go through them, and the section follows.
    focusPolicy: root.selected || root.activeFocus ? Qt.TabFocus : Qt.NoFocus
    onVisualFocusChanged: if (root.visualFocus && !root.selected) root.clicked()
    onClicked: root.store.section = root.section
    Accessible.name: root.badge > 0 ? root.title + ", " + root.badge : root.title
    Accessible.description: root.selected ? "selected" : "not selected"
    Accessible.selectable: true
    Accessible.selected: root.selected

    background: ChoiceFill {
        control: root
        selected: root.selected
    }

    Item {
        width: root.width
        height: root.height

        Symbol {
            id: symbol

            x: Theme.gap2
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbolName
            color: root.selected ? Theme.accent : Theme.textSecondary
        }

        PlainText {
            anchors.left: symbol.right
            anchors.leftMargin: Theme.gap2
            anchors.right: count.left
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            size: Theme.sizeTitle
            font.weight: root.selected ? Font.DemiBold : Font.Normal
            Accessible.ignored: true
        }

        Badge {
            id: count

            anchors.right: parent.right
            anchors.rightMargin: Theme.gap2
            anchors.verticalCenter: parent.verticalCenter
            visible: root.badge > 0
            text: root.badge
            Accessible.ignored: true
        }
    }
}
