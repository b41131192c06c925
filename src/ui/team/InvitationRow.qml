import QtQuick
import Pingwell

/** One invitation to the person, to be taken or declined. */
Item {
    id: root

    required property invitationRow invitation
    required property AppStore store
    readonly property string age: root.invitation.invitedAt < 0
                                  ? "" : TimeText.relativeAge(root.invitation.invitedAt, root.store.now)
    readonly property string offer: "Join as " + root.invitation.role + (root.age ? " · " + root.age : "")

    objectName: "team.invitation." + root.invitation.token
    implicitHeight: 52
    Accessible.role: Accessible.Grouping
    Accessible.name: root.invitation.workspaceName + ", " + root.offer

    Symbol {
        id: symbol

        x: Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        name: "envelope.open"
        color: Theme.accent
    }

    Column {
        x: symbol.x + symbol.width + Theme.gap3
        width: answers.x - x - Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1

        PlainText {
            width: parent.width
            text: root.invitation.workspaceName
            size: Theme.sizeTitle
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            text: root.offer
            size: Theme.sizeNote
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    Row {
        id: answers

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.gap2

        PlainButton {
            objectName: root.objectName + ".reject"
            label: "Decline"
            onClicked: root.store.rejectInvitation(root.invitation.token)
        }

        PlainButton {
            objectName: root.objectName + ".accept"
            label: "Join"
            prominent: true
            onClicked: root.store.acceptInvitation(root.invitation.token)
        }
    }
}
