import QtQuick
import Pingwell

/** What can be done with a member who has yet to join. */
MemberActionsMenu {
    id: root

    PopupMenuItem {
        objectName: root.idPrefix + ".resend"
        label: "Resend invite"
        symbolName: "envelope"
        enabled: root.row?.member.canResend ?? false
        onTriggered: root.team.store.resendInvitation(root.memberID)
    }

    PopupMenuItem {
        objectName: root.idPrefix + ".revoke"
        label: "Revoke invite"
        symbolName: "xmark"
        destructive: true
        enabled: root.row?.member.canRemove ?? false
        onTriggered: root.team.store.removeMember(root.memberID)
    }
}
