import QtQuick
import Pingwell

/** The panel's head: the program's name, the state of the connection, and the focus switch. */
Item {
    id: root

    required property AppStore store
    readonly property bool hasProblem: root.store.connectionProblem.length > 0

    implicitHeight: 12 + words.height + 10

    ServerInUse {
        id: inUse

        store: root.store
    }

    Column {
        id: words

        x: Theme.gap3
        y: Theme.gap3
        spacing: 2

        PlainText {
            id: name

            text: "Pingwell"
            size: Theme.sizeTitle
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        Row {
            spacing: 6

            Dot {
                anchors.verticalCenter: parent.verticalCenter
                color: !root.store.isSignedIn ? Theme.neutral : root.hasProblem ? Theme.offline : Theme.online
            }

            PlainText {
                objectName: "popover.status"
                text: !root.store.isSignedIn ? "Signed out"
                    : (root.hasProblem ? "Offline · " : "Connected · ") + root.store.serverLabel
                size: Theme.sizeSmall
                color: Theme.textSecondary
            }
        }
    }

    PlainText {
        objectName: "popover.server"
        x: words.x + name.width + Theme.gap2
        y: words.y + name.baselineOffset - baselineOffset
        width: focusSwitch.x - Theme.gap3 - x
        visible: root.store.isSignedIn && inUse.host.length > 0
        elide: Text.ElideMiddle
        text: inUse.host
        size: Theme.sizeSmall
        color: Theme.textSecondary
    }

    ToggleSwitch {
        id: focusSwitch

        objectName: "popover.focus"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        y: Theme.gap3 - 1
        label: "Focus"
        on: root.store.focusMode
        onToggleRequested: on => root.store.focusMode = on
    }
}
