import QtQuick
import Pingwell

/** What is filled in, under what it is called. Its child is the control. */
Column {
    id: root

    required property string label

    spacing: Theme.gap1

    SectionLabel {
        text: root.label
        Accessible.ignored: true
    }
}
