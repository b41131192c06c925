import QtQuick
import Pingwell

/** One member of the list. The keyboard is at whole rows; Return opens the menu of one. */
Item {
    id: root

    required property memberRow member
    required property double now
    /** The width of what can be done, kept free in a row where there is nothing to do. */
    required property real actionsWidth
    property bool menuOpen: false
    readonly property string age: root.member.isInvited && root.member.invitedAt >= 0
                                  ? TimeText.relativeAge(root.member.invitedAt, root.now) : ""
    readonly property string state: (root.member.isInvited ? "Invited, " : "") + (root.age ? root.age + ", " : "")
        + root.member.role

    signal menuRequested(button: Item)
    /** By the pointer, at that place of the button, far outside of it. */
    signal menuRequestedAt(button: Item, x: real, y: real)

    function requestMenu() {
        if (root.member.hasActions)
            root.menuRequested(actions)
    }

    objectName: "team.member." + root.member.id
    implicitHeight: 52
    Keys.onReturnPressed: root.requestMenu()
    Keys.onEnterPressed: root.requestMenu()
    Keys.onSpacePressed: root.requestMenu()
    Keys.forwardTo: [menuArea]
    Accessible.role: Accessible.ListItem
    Accessible.name: root.member.title + (root.member.email ? ", " + root.member.email : "") + ", " + root.state
    Accessible.focusable: true
    Accessible.focused: root.activeFocus
    Accessible.onPressAction: root.requestMenu()

    MenuArea {
        id: menuArea

        anchors.fill: parent
        enabled: root.member.hasActions
        onMenuRequested: root.requestMenu()
        onMenuRequestedAt: (x, y) => {
            const place = mapToItem(actions, x, y)
            root.menuRequestedAt(actions, place.x, place.y)
        }
    }

    Divider {
        x: words.x
        width: root.width - x - Theme.gap2
        anchors.bottom: parent.bottom
    }

    FocusRing {
        target: root
        anchors.margins: 2
        shown: root.activeFocus
    }

    MemberAvatar {
        id: avatar

        x: Theme.gap2
        anchors.verticalCenter: parent.verticalCenter
        member: root.member
    }

    Column {
        id: words

        x: avatar.x + avatar.width + Theme.gap3
        width: standing.x - x - Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1

        PlainText {
            width: parent.width
            text: root.member.title
            size: Theme.sizeTitle
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            visible: text.length > 0
            text: root.member.email
            size: Theme.sizeNote
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    MemberStanding {
        id: standing

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap2 + root.actionsWidth
        anchors.verticalCenter: parent.verticalCenter
        member: root.member
        age: root.age
    }

    MoreButton {
        id: actions

        objectName: root.objectName + ".menu"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap1
        anchors.verticalCenter: parent.verticalCenter
        visible: root.member.hasActions
        focusPolicy: Qt.NoFocus
        label: "Member actions"
        open: root.menuOpen
        onClicked: root.requestMenu()
    }
}
