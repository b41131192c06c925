import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A menu of what can be done with the member of one row; closed when that row goes. */
PopupMenu {
    id: root

    required property TeamModel team
    property MemberRow row: null
    readonly property string memberID: root.row?.member.id ?? ""
    readonly property string idPrefix: "team.member." + root.memberID

    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    onRowChanged: if (!root.row) root.close()
}
