import QtQuick
import Pingwell

/** One of the person's devices. All but this computer can be removed. */
Item {
    id: root

    required property deviceRow device
    /** Milliseconds since 1970. */
    required property real now
    readonly property string detail: "v" + root.device.version + " · "
                                     + TimeText.relativeAge(root.device.lastSeen, root.now)

    signal removeRequested

    objectName: "settings.device." + root.device.id
    width: parent?.width ?? 0
    implicitHeight: 52
    Keys.forwardTo: [menuArea]
    Accessible.role: Accessible.ListItem
    Accessible.name: root.device.name + ", " + root.detail
    Accessible.description: root.device.isThisComputer ? "this computer" : ""

    FormDivider {}

    MenuArea {
        id: menuArea

        anchors.fill: parent
        enabled: more.visible
        onMenuRequested: more.clicked()
        onMenuRequestedAt: (x, y) => more.openAt(menuArea, x, y)
    }

    Symbol {
        id: symbol

        x: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        name: root.device.symbolName
        size: 20
    }

    Column {
        anchors.left: symbol.right
        anchors.leftMargin: Theme.gap3
        anchors.right: more.left
        anchors.rightMargin: Theme.gap2
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        PlainText {
            width: parent.width
            text: root.device.name
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            text: root.detail
            size: Theme.sizeSmall
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    MoreMenu {
        id: more

        objectName: root.objectName + ".menu"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.device.isThisComputer
        label: "Device actions"

        PopupMenuItem {
            objectName: root.objectName + ".remove"
            label: "Remove this device…"
            symbolName: "trash"
            destructive: true
            onTriggered: root.removeRequested()
        }
    }
}
