import QtQuick
import Pingwell

/** The line above a row of a form, but the first. */
Divider {
    x: Theme.gap4
    width: (parent?.width ?? 0) - x - 1
    visible: (parent?.y ?? 0) > 0
}
