import QtQuick
import Pingwell

/** A small heading. */
PlainText {
    size: Theme.sizeSmall
    color: Theme.textSecondary
    font.weight: Font.DemiBold
    Accessible.role: Accessible.Heading
}
