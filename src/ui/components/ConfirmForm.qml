import QtQuick
import Pingwell

/** The content of a sheet that asks before something that cannot be undone. Return never says yes. */
SheetForm {
    id: root

    required property string message

    note: root.message
    acceptWord: "confirm"
    destructive: true
    Component.onCompleted: root.cancelButton.forceActiveFocus(Qt.TabFocusReason)
}
