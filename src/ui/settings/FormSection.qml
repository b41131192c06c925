import QtQuick
import Pingwell

/** A titled card of rows, and what there is to say about them. */
Column {
    id: root

    default property alias rows: rows.data
    property string title
    property string footer
    property color footerColor: Theme.textSecondary
    property string footerIdentifier

    spacing: 6

    SectionLabel {
        x: Theme.gap4
        width: parent.width - 2 * Theme.gap4
        visible: root.title.length > 0
        text: root.title
    }

    Rectangle {
        width: parent.width
        height: rows.height
        radius: Theme.radiusCard
        color: Theme.card
        border.width: 1
        border.color: Theme.border

        Column {
            id: rows

            width: parent.width
        }
    }

    PlainText {
        objectName: root.footerIdentifier
        x: Theme.gap4
        width: parent.width - 2 * Theme.gap4
        visible: root.footer.length > 0
        text: root.footer
        size: Theme.sizeNote
        color: root.footerColor
        wrapMode: Text.Wrap
    }
}
