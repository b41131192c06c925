import QtQuick
import Pingwell

/** Who is signed in, and whether the service is there. */
Item {
    id: root

    required property AppStore store
    required property SignedInPerson person
    readonly property bool hasProblem: root.store.connectionProblem.length > 0

    objectName: "sidebar.account"
    implicitHeight: status.y + status.height + Theme.gap3
    visible: root.store.isSignedIn
    Accessible.role: Accessible.StaticText
    Accessible.name: root.person.nameAndEmail + ", " + server.text + (inUse.host ? ", " + inUse.host : "")
    Accessible.description: root.hasProblem ? "connection problem" : "connected"

    ServerInUse {
        id: inUse

        store: root.store
    }

    Rectangle {
        id: circle

        x: Theme.gap3
        y: Theme.gap3
        width: 26
        height: 26
        radius: 13
        color: Theme.accentFill

        PlainText {
            anchors.centerIn: parent
            text: root.person.initials
            size: Theme.sizeMeta
            font.weight: Font.DemiBold
            color: Theme.textOnAccent
            Accessible.ignored: true
        }
    }

    Column {
        id: words

        anchors.left: circle.right
        anchors.leftMargin: Theme.gap2
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        anchors.verticalCenter: circle.verticalCenter

        PlainText {
            width: parent.width
            visible: text.length > 0
            text: root.person.name
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            visible: text.length > 0
            text: root.person.email
            font.weight: Font.Medium
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    Item {
        id: status

        y: Math.max(circle.y + circle.height, words.y + words.height) + 6
        width: root.width
        height: server.height + (host.visible ? host.height : 0)

        Dot {
            x: circle.x + Math.round((circle.width - width) / 2)
            anchors.verticalCenter: server.verticalCenter
            color: root.hasProblem ? Theme.offline : Theme.online
        }

        PlainText {
            id: server

            x: words.x
            width: parent.width - x - Theme.gap10
            text: root.store.serverLabel
            size: Theme.sizeMeta
            color: Theme.textSecondary
            Accessible.ignored: true
        }

        PlainText {
            id: host

            x: words.x
            y: server.height
            width: server.width
            visible: text.length > 0
            elide: Text.ElideMiddle
            text: inUse.host
            size: Theme.sizeMeta
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }
}
