import QtQuick

/** A small round mark; what it says is said in words beside it. */
Rectangle {
    id: root

    property int size: 6

    width: root.size
    height: root.size
    radius: root.size / 2
    Accessible.ignored: true
}
