import QtQuick
import Pingwell

/** Says what is wrong with the connection, while something is. */
Rectangle {
    id: root

    required property AppStore store
    readonly property string problem: ShownText.line(root.store.connectionProblem)

    objectName: "connection.problem"
    implicitHeight: visible ? Math.max(message.height, retry.height) + 2 * Theme.gap2 : 0
    visible: root.problem.length > 0
    color: Theme.warningFill
    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.problem

    SymbolLabel {
        id: message

        x: Theme.gap4
        width: retry.x - x - Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        symbolName: "wifi.exclamationmark"
        text: root.problem
        textSize: Theme.sizeBody
        color: Theme.timedOut
        Accessible.ignored: true
    }

    PlainButton {
        id: retry

        objectName: "connection.retry"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: 24
        textSize: Theme.sizeNote
        label: "Retry"
        onClicked: root.store.refresh()
    }
}
