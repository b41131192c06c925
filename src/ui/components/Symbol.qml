import QtQuick
import Pingwell

/** A symbol by its name, drawn in one colour at any scale. Decoration: what it says is said in words beside it. */
Image {
    id: root

    required property string name
    property color color: Theme.textSecondary
    property int size: 16

    width: root.size
    height: root.size
    sourceSize.width: root.size
    sourceSize.height: root.size
    source: root.name.length > 0 ? "image://symbol/" + root.name + "/" + root.color.toString().substring(1) : ""
    Accessible.ignored: true
}
