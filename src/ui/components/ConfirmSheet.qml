pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** Asks before something that cannot be undone. Its buttons are "<idPrefix>.confirm" and "<idPrefix>.cancel". */
Sheet {
    id: root

    required property string idPrefix
    required property string title
    required property string message
    required property string confirmLabel

    signal confirmed

    content: ConfirmForm {
        width: root.availableWidth
        idPrefix: root.idPrefix
        title: root.title
        message: root.message
        acceptLabel: root.confirmLabel
        onCancelled: root.close()
        onAccepted: {
            root.close()
            root.confirmed()
        }
    }
}
