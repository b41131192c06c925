import QtQuick
import Pingwell

/** The team section of the main screen. */
Item {
    id: root

    required property AppStore store
}
