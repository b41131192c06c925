import QtQuick
import Pingwell

/** The title of a section of the main window, and a line on what it is for where there is one. */
Column {
    id: root

    required property string title
    property string detail

    spacing: Theme.gap1

    PlainText {
        width: parent.width
        text: root.title
        size: Theme.sizeScreenTitle
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    PlainText {
        width: parent.width
        visible: root.detail.length > 0
        text: root.detail
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }
}
