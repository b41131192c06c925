import QtQuick
import Pingwell

/** The head of the team screen: how many there are, and what can be done with all. */
Item {
    id: root

    required property TeamModel team

    signal inviteRequested
    signal renameRequested

    implicitHeight: words.height

    Column {
        id: words

        width: actions.x - Theme.gap3
        spacing: 2

        PlainText {
            width: parent.width
            text: "Team"
            size: Theme.sizeScreenTitle
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        PlainText {
            objectName: "team.subtitle"
            width: parent.width
            text: root.team.subtitle
            color: Theme.textSecondary
        }
    }

    Row {
        id: actions

        anchors.right: parent.right
        // The symbols of the rows' buttons and this one's are in one line.
        anchors.rightMargin: -Theme.gap1
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.team.canManage ? Theme.gap1 : 0

        PlainButton {
            objectName: "team.invite"
            visible: root.team.isTeam && !root.team.isViewer
            enabled: root.team.canManage
            label: "Invite"
            symbolName: "person.badge.plus"
            onClicked: root.inviteRequested()
        }

        MoreMenu {
            objectName: "team.menu"
            anchors.verticalCenter: parent.verticalCenter
            visible: root.team.isTeam && root.team.canManage
            label: "Workspace actions"

            PopupMenuItem {
                objectName: "team.rename"
                label: "Rename workspace…"
                onTriggered: root.renameRequested()
            }
        }
    }
}
