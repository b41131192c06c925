import QtQuick
import Pingwell

/** Stands for a member: the initials, or a letter on its way to who has yet to join. Decoration. */
Rectangle {
    id: root

    required property memberRow member

    implicitWidth: 32
    implicitHeight: 32
    radius: height / 2
    color: root.member.isInvited ? "transparent" : Theme.selection
    border.width: root.member.isInvited ? 1 : 0
    border.color: Theme.controlBorder
    Accessible.ignored: true

    PlainText {
        anchors.centerIn: parent
        visible: !root.member.isInvited
        text: root.member.initials
        size: Theme.sizeSmall
        font.weight: Font.DemiBold
        color: Theme.accent
        Accessible.ignored: true
    }

    Symbol {
        anchors.centerIn: parent
        visible: root.member.isInvited
        name: "envelope"
    }
}
