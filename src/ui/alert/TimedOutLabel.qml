import QtQuick
import Pingwell

/** Tells that an ask timed out, and what the agent was told then. */
Column {
    id: root

    required property string message

    spacing: 6
    Accessible.role: Accessible.StaticText
    Accessible.name: "TIMED OUT, " + root.message

    TimedOutTag {
        Accessible.ignored: true
    }

    PlainText {
        width: root.width
        text: root.message
        size: Theme.sizeTitle
        color: Theme.textSecondary
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
