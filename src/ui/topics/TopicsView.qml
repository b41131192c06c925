import QtQuick
import Pingwell

/** The topics section of the main screen. */
Item {
    id: root

    required property AppStore store
}
