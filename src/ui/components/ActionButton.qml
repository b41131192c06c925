import Pingwell

/** One of the answers that an alert offers: filled when prominent, outlined otherwise, of a fixed height. */
PlainButton {
    id: root

    required property int fixedHeight

    implicitHeight: root.fixedHeight
    textSize: root.fixedHeight < 28 ? Theme.sizeNote : Theme.sizeBody
}
