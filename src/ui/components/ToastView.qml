import QtQuick
import Pingwell

/** The store's message of the moment, while there is one. */
Rectangle {
    id: root

    required property AppStore store
    readonly property bool shown: root.store.toastMessage.length > 0
    // Kept while the toast fades, when the store has none any more.
    property string message
    property bool isError: false

    function take() {
        if (!root.shown)
            return
        root.message = root.store.toastMessage
        root.isError = root.store.toastIsError
    }

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
    Component.onCompleted: root.take()

    Connections {
        target: root.store

        function onToastChanged() {
            root.take()
        }
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
