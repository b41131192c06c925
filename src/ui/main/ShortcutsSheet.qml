pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** Lists the keys, while `wanted`. */
Sheet {
    id: root

    implicitWidth: 400

    content: ShortcutList {
        width: root.availableWidth
        onClosed: root.close()
    }
}
