import QtQuick
import Pingwell

/** Tells that an ask timed out, and what the agent was told then. */
Item {
    id: root

    required property string message
    property bool compact: false

    implicitWidth: words.x + words.implicitWidth
    implicitHeight: root.compact ? Math.max(tag.height, words.height) : words.y + words.height
    Accessible.role: Accessible.StaticText
    Accessible.name: "TIMED OUT, " + root.message

    Tag {
        id: tag

        text: "TIMED OUT"
        ink: Theme.timedOut
        color: Theme.warningFill
        compact: root.compact
        Accessible.ignored: true
    }

    PlainText {
        id: words

        x: root.compact ? tag.width + 6 : 0
        y: root.compact ? Math.round((tag.height - height) / 2) : tag.height + 6
        width: root.width - x
        text: root.message
        size: root.compact ? Theme.sizeNote : Theme.sizeTitle
        color: root.compact ? Theme.timedOut : Theme.textSecondary
        wrapMode: root.compact ? Text.NoWrap : Text.Wrap
        Accessible.ignored: true
    }
}
