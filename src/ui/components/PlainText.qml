import QtQuick
import Pingwell

/** The only way to show text: never markup, whatever it holds. `size` is in pixels of an unscaled screen. */
Text {
    id: root

    property real size: Theme.sizeBody

    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    color: Theme.textPrimary
    // Points, because pixel sizes cannot be fractions: 72 points are 96 pixels.
    font.pointSize: root.size * 0.75
    elide: Text.ElideRight

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
