import QtQuick
import Pingwell

/** The settings section of the main screen. */
Item {
    id: root

    required property AppStore store
    // Null where there are none.
    property NotificationAccess notifications: null
    property LoginItemAccess loginItem: null
}
