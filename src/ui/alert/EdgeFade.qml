import QtQuick
import Pingwell

/** Something goes on beyond this edge. */
Rectangle {
    width: Theme.gap5
    Accessible.ignored: true

    gradient: Gradient {
        orientation: Gradient.Horizontal

        GradientStop {
            position: 0
            color: Qt.alpha(Theme.window, 0)
        }
        GradientStop {
            position: 1
            color: Theme.window
        }
    }
}
