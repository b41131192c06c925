import QtQuick
import QtQuick.Templates as T
import Pingwell

/** One entry of a menu, with room for a symbol before its words. */
T.MenuItem {
    id: root

    required property string label
    property string symbolName
    property bool chosen: false
    property bool destructive: false
    readonly property color ink: root.destructive ? Theme.danger : Theme.textPrimary

    width: ListView.view?.width ?? implicitWidth
    implicitWidth: implicitContentWidth
    implicitHeight: 28
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.label
    Accessible.checked: root.chosen

    background: Rectangle {
        radius: Theme.radius - 1
        color: root.down ? Theme.pressed : root.highlighted || root.hovered ? Theme.hover : "transparent"
    }

    contentItem: PopupMenuLabel {
        label: root.label
        symbolName: root.symbolName
        ink: root.ink
        symbolInk: root.chosen ? Theme.accent : root.destructive ? Theme.danger : Theme.textSecondary
    }
}
