import QtQuick
import Pingwell

/** The left column of the main screen. */
Rectangle {
    id: root

    required property AppStore store

    color: Theme.sidebar
    Accessible.ignored: true

    Row {
        id: brand

        x: Theme.gap4
        y: Theme.gap4
        spacing: Theme.gap2

        AppGlyph {
            anchors.verticalCenter: parent.verticalCenter
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: "Pingwell"
            size: Theme.sizeTitle
            font.weight: Font.DemiBold
        }
    }

    WorkspaceMenu {
        x: 10
        anchors.top: brand.bottom
        anchors.topMargin: Theme.gap3
        width: root.width - 20
        store: root.store
        idPrefix: "sidebar.workspace"
    }
}
