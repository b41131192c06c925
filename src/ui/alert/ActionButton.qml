import Pingwell

/**
 * One of the answers that an alert offers: filled when prominent, outlined otherwise, of a fixed height. What needs more
 * than one line makes it grow: nobody should have to press words they could not read.
 */
PlainButton {
    id: root

    required property int fixedHeight

    implicitHeight: root.lineCount > 1 ? Math.ceil(implicitContentHeight) + 2 * Theme.gap2 : root.fixedHeight
    wraps: true
    textSize: root.fixedHeight < 28 ? Theme.sizeNote : Theme.sizeBody
}
