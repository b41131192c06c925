import QtQuick
import Pingwell

/** The store's message of the moment, while there is one. */
Rectangle {
    id: root

    required property AppStore store
    readonly property string message: ShownText.line(root.store.toastMessage)
    readonly property bool isError: root.store.toastIsError
    readonly property bool shown: root.message.length > 0

    objectName: "toast"
    implicitWidth: content.width + 2 * Theme.gap3
    implicitHeight: content.height + 2 * Theme.gap2
    visible: root.shown
    color: Theme.raised
    radius: Theme.radiusCard
    border.width: 1
    border.color: Theme.controlBorder
    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.message

    // What lies beneath is not seen: a press must not reach it.
    MouseArea {
        anchors.fill: parent
    }

    Row {
        id: content

        x: Theme.gap3
        y: Theme.gap2
        spacing: Theme.gap2

        Symbol {
            y: Math.round((Math.min(words.height, 16) - height) / 2)
            name: root.isError ? "exclamationmark.triangle.fill" : "checkmark.circle"
            color: root.isError ? Theme.danger : Theme.answered
        }

        PlainText {
            id: words

            width: Math.min(implicitWidth, (root.parent?.width ?? 340) - 88)
            text: root.message
            wrapMode: Text.Wrap
            maximumLineCount: 4
            Accessible.ignored: true
        }
    }
}
