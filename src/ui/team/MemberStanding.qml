import QtQuick
import Pingwell

/** Where a member stands: invited and since when, and the role. */
Row {
    id: root

    required property memberRow member
    required property string age

    readonly property string idPrefix: "team.member." + root.member.id

    spacing: Theme.gap2

    Badge {
        objectName: root.idPrefix + ".invited"
        anchors.verticalCenter: parent.verticalCenter
        visible: root.member.isInvited
        text: "Invited"
        tint: Theme.warningFill
        ink: Theme.timedOut
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        visible: text.length > 0
        text: root.age
        size: Theme.sizeSmall
        color: Theme.textTertiary
        Accessible.ignored: true
    }

    PlainText {
        objectName: root.idPrefix + ".role"
        anchors.verticalCenter: parent.verticalCenter
        width: 56
        horizontalAlignment: Text.AlignRight
        text: root.member.role
        size: Theme.sizeNote
        color: root.member.role === "owner" ? Theme.accent : Theme.textSecondary
    }
}
