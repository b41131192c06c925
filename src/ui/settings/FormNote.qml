import QtQuick
import Pingwell

/** A row of a form that only says something. */
Item {
    id: root

    required property string text

    width: parent?.width ?? 0
    implicitHeight: words.height + 2 * 10
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    FormDivider {}

    PlainText {
        id: words

        x: Theme.gap4
        y: 10
        width: parent.width - 2 * x
        text: root.text
        size: Theme.sizeNote
        color: Theme.textSecondary
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
