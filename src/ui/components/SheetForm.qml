import QtQuick
import Pingwell

/**
 * What a sheet asks: a title, a line about it, its fields, and the buttons "<idPrefix>.cancel" and
 * "<idPrefix>.<acceptWord>". Its children are the fields.
 */
Column {
    id: root

    required property string idPrefix
    required property string title
    required property string acceptWord
    required property string acceptLabel
    property string note
    property bool acceptable: true
    property bool destructive: false
    property alias cancelButton: cancel
    default property alias fields: middle.data

    signal cancelled
    signal accepted

    /** What Return does in every field; it never says yes to what cannot be undone. */
    function submit(event: KeyEvent) {
        if (root.acceptable && !root.destructive && !event.isAutoRepeat)
            root.accepted()
    }

    spacing: Theme.gap3
    Keys.onReturnPressed: event => root.submit(event)
    Keys.onEnterPressed: event => root.submit(event)
    Accessible.role: Accessible.Dialog
    Accessible.name: root.title
    Accessible.description: root.note

    Column {
        width: parent.width
        spacing: Theme.gap1

        PlainText {
            width: parent.width
            text: root.title
            size: Theme.sizeReading
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
            maximumLineCount: 3
            Accessible.role: Accessible.Heading
        }

        PlainText {
            width: parent.width
            visible: text.length > 0
            text: root.note
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            lineHeight: 1.15
        }
    }

    Column {
        id: middle

        width: parent.width
        visible: children.length > 0
        spacing: Theme.gap3
    }

    Row {
        anchors.right: parent.right
        topPadding: Theme.gap1
        spacing: Theme.gap2

        PlainButton {
            id: cancel

            objectName: root.idPrefix + ".cancel"
            label: "Cancel"
            onClicked: root.cancelled()
        }

        PlainButton {
            objectName: root.idPrefix + "." + root.acceptWord
            label: root.acceptLabel
            prominent: !root.destructive
            destructive: root.destructive
            enabled: root.acceptable
            onClicked: root.accepted()
        }
    }
}
