import QtQuick
import QtQuick.Templates as T
import Pingwell

/** One alert of the inbox. */
T.AbstractButton {
    id: root

    required property alertRow alert
    required property int index
    required property double now
    // The rows outlive it by a moment when the session ends.
    required property InboxMetrics metrics
    property bool selected: false
    /** The keyboard is at this row, and the person uses it. */
    property bool keyboardHere: false
    /** A press with the pointer is meant for this alert. */
    function takesPointer(): bool {
        return guard.takesPointer()
    }

    readonly property string age: TimeText.shortAge(root.alert.at, root.now)

    objectName: "alert.row." + root.alert.id
    implicitHeight: (root.metrics?.rowHeight ?? 0)
    leftPadding: 10
    rightPadding: 10
    enabled: root.alert.state !== "gone"
    // The list is one stop; the arrow keys move within it.
    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: root.alert.app + ", #" + root.alert.topic + ", " + root.age + ", " + root.alert.title + ", "
        + state.text
    Accessible.description: root.alert.read ? "read" : "unread"
    Accessible.selectable: true
    Accessible.selected: root.selected
    Accessible.focusable: true

    background: Item {
        ChoiceFill {
            anchors.fill: parent
            anchors.leftMargin: 6
            anchors.rightMargin: 6
            anchors.topMargin: 1
            anchors.bottomMargin: 1
            control: root
            selected: root.selected
            keyboardHere: root.keyboardHere
        }
    }

    PressGuard {
        id: guard

        anchors.fill: parent
        z: 1
        meaning: root.alert.id
    }

    Item {
        x: root.leftPadding
        width: root.availableWidth

        Dot {
            y: (root.metrics?.originY ?? 0) + 6
            size: 7
            visible: !root.alert.read
            color: Theme.accent
        }

        Item {
            id: words

            x: 7 + Theme.gap2
            width: parent.width - x

            InboxRowOrigin {
                y: (root.metrics?.originY ?? 0)
                width: parent.width
                alert: root.alert
                age: root.age
            }

            PlainText {
                y: (root.metrics?.titleY ?? 0)
                width: parent.width
                text: root.alert.title
                size: Theme.sizeTitle
                font.weight: root.alert.read ? Font.Normal : Font.DemiBold
                Accessible.ignored: true
            }

            InboxRowState {
                id: state

                y: (root.metrics?.stateY ?? 0)
                width: parent.width
                alert: root.alert
                now: root.now
            }
        }
    }
}
