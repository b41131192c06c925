import QtQuick
import Pingwell

/** The content of the sheet that lists the keys. */
Column {
    id: root

    signal closed

    objectName: "shortcuts.sheet"
    spacing: Theme.gap2
    Accessible.role: Accessible.Dialog
    Accessible.name: title.text
    Component.onCompleted: done.forceActiveFocus()

    PlainText {
        id: title

        text: "Keyboard shortcuts"
        size: Theme.sizeReading
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    SectionLabel {
        topPadding: Theme.gap1
        text: "Alerts"
    }

    Column {
        width: parent.width

        ShortcutLine { width: parent.width; keys: "↑  ↓"; meaning: "Move through the list" }
        ShortcutLine { width: parent.width; keys: "Return"; meaning: "Open the alert; again: go into it" }
        ShortcutLine { width: parent.width; keys: "1 – 9"; meaning: "Press that answer, once in the ask" }
        ShortcutLine { width: parent.width; keys: "R"; meaning: "Write a reply" }
        ShortcutLine { width: parent.width; keys: "U"; meaning: "Mark as read or unread" }
        ShortcutLine { width: parent.width; keys: "Delete"; meaning: "Delete the alert" }
        ShortcutLine { width: parent.width; keys: "Shift + F10"; meaning: "What else can be done with it" }
        ShortcutLine { width: parent.width; keys: "Escape"; meaning: "Back to the list" }
    }

    SectionLabel {
        topPadding: Theme.gap1
        text: "Window"
    }

    Column {
        width: parent.width

        ShortcutLine { width: parent.width; keys: "Ctrl + 1 – 4"; meaning: "Inbox, Topics, Team, Settings" }
        ShortcutLine { width: parent.width; keys: "Ctrl + F"; meaning: "Choose a filter" }
        ShortcutLine { width: parent.width; keys: "F1"; meaning: "Show this list" }
    }

    PlainButton {
        id: done

        objectName: "shortcuts.close"
        anchors.right: parent.right
        label: "Done"
        prominent: true
        onClicked: root.closed()
    }
}
