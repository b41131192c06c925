import QtQuick
import Pingwell

/** Something is under way and nobody knows how long. It stands still where the desktop asks for no motion. */
Symbol {
    id: root

    name: "spinner"
    size: 20

    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: Math.max(Theme.durationTurn, 1)
        loops: Animation.Infinite
        running: root.visible && Theme.durationTurn > 0
    }
}
