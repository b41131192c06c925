import QtQuick
import Pingwell

/** The first load: under way, or in trouble. */
Item {
    id: root

    required property AppStore store
    readonly property string problem: ShownText.line(root.store.connectionProblem)
    readonly property bool hasProblem: root.problem.length > 0
    readonly property string message: root.hasProblem ? root.problem : "Loading your alerts…"

    objectName: "loading"
    Accessible.role: Accessible.Pane
    Accessible.name: root.message

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.gap10, 420)
        spacing: Theme.gap3

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !root.hasProblem
        }

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.hasProblem
            name: "wifi.exclamationmark"
            size: 26
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: root.message
            size: Theme.sizeTitle
            color: Theme.textSecondary
        }

        PlainButton {
            objectName: "loading.retry"
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.hasProblem
            label: "Try again"
            prominent: true
            onClicked: root.store.refresh()
        }

        LinkButton {
            objectName: "loading.signOut"
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.hasProblem
            label: "Sign out"
            onClicked: root.store.signOut()
        }
    }
}
