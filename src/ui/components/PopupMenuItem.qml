import QtQuick
import QtQuick.Templates as T
import Pingwell

/** One entry of a menu, with room for a symbol before its words. */
T.MenuItem {
    id: root

    required property string label
    property string symbolName
    /** One of several choices, and whether it is the one that holds. */
    property bool isChoice: false
    property bool chosen: false
    property bool destructive: false
    property bool opensMenu: false
    readonly property color ink: root.destructive ? Theme.danger : Theme.textPrimary

    // A bar to scroll with stands beside the entries, not over them.
    width: ListView.view ? ListView.view.width - (ListView.view.interactive ? Theme.gap2 : 0) : implicitWidth
    implicitWidth: implicitContentWidth
    implicitHeight: 28
    // The keyboard passes over what cannot be chosen.
    activeFocusOnTab: enabled && visible
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.label
    Accessible.description: !root.isChoice ? "" : root.chosen ? "selected" : "not selected"
    Accessible.checkable: root.isChoice
    Accessible.checked: root.chosen

    background: Rectangle {
        radius: Theme.radius - 1
        color: root.down ? Theme.pressed : root.highlighted || root.hovered ? Theme.hover : "transparent"
    }

    contentItem: PopupMenuLabel {
        label: root.label
        symbolName: root.symbolName
        opensMenu: root.opensMenu
        ink: root.ink
        symbolInk: root.chosen ? Theme.accent : root.destructive ? Theme.danger : Theme.textSecondary
    }

    PressGuard {
        anchors.fill: parent
        z: 1
        meaning: root.objectName + " " + root.label
    }
}
