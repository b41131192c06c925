import QtQuick
import QtQuick.Templates as T
import Pingwell

/** One alert of the inbox. */
T.AbstractButton {
    id: root

    required property alertRow alert
    required property double now
    property bool selected: false
    readonly property string age: TimeText.shortAge(root.alert.at, root.now)

    objectName: "alert.row." + root.alert.id
    implicitHeight: content.implicitHeight + topPadding + bottomPadding
    leftPadding: 10
    rightPadding: 10
    topPadding: Theme.gap1
    bottomPadding: Theme.gap1
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    Keys.onReturnPressed: root.clicked()
    Accessible.role: Accessible.Button
    Accessible.name: root.alert.app + ", #" + root.alert.topic + ", " + root.age + ", " + root.alert.title + ", "
        + state.text
    Accessible.description: root.alert.read ? "read" : "unread"
    Accessible.selected: root.selected

    background: Item {
        PressFill {
            anchors.fill: parent
            anchors.leftMargin: Theme.gap1 + 2
            anchors.rightMargin: Theme.gap1 + 2
            control: root
            restColor: root.selected ? Theme.selection : "transparent"
        }
    }

    Item {
        id: content

        x: root.leftPadding
        y: root.topPadding
        width: root.availableWidth
        implicitHeight: words.height + 2 * Theme.gap1

        Dot {
            x: Theme.gap1
            y: Theme.gap1 + 6
            size: 7
            visible: !root.alert.read
            color: Theme.accent
        }

        Column {
            id: words

            x: Theme.gap1 + 7 + Theme.gap2
            y: Theme.gap1
            width: parent.width - x - Theme.gap2
            spacing: 3

            InboxRowOrigin {
                width: parent.width
                alert: root.alert
                age: root.age
            }

            PlainText {
                width: parent.width
                text: root.alert.title
                size: Theme.sizeTitle
                font.weight: root.alert.read ? Font.Normal : Font.DemiBold
                Accessible.ignored: true
            }

            InboxRowState {
                id: state

                width: parent.width
                alert: root.alert
                now: root.now
            }
        }
    }
}
