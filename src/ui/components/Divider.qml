import QtQuick
import Pingwell

/** A hairline between two areas. */
Rectangle {
    implicitHeight: 1
    implicitWidth: 1
    color: Theme.separator
    Accessible.ignored: true
}
