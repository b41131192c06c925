import QtQuick
import Pingwell

/** The main screen: the sidebar, and the section that it chooses. */
Item {
    id: root

    required property AppStore store
    // Null where there are none.
    property NotificationAccess notifications: null
    property LoginItemAccess loginItem: null
    /** How wide the sidebar is to be, if there is room for it. */
    property int sidebarWidth: defaultSidebarWidth
    readonly property int defaultSidebarWidth: 220
    readonly property int narrowestSidebar: 180
    // What the sections need: the list, and a readable alert beside it.
    readonly property int widestSidebar: Math.max(root.narrowestSidebar, Math.min(320, root.width - 700))

    signal sidebarWidthRequested(width: int)

    function focusSection() {
        if (root.store.section === "inbox")
            screens.inbox?.takeFocus()
        else
            sidebar.takeFocus()
    }

    Component.onCompleted: root.notifications?.considerPrompt(root.store)

    Sidebar {
        id: sidebar

        width: Math.max(root.narrowestSidebar, Math.min(root.sidebarWidth, root.widestSidebar))
        height: root.height
        store: root.store
        onShortcutsRequested: shortcuts.wanted = true
    }

    ConnectionBanner {
        id: banner

        anchors.left: edge.right
        anchors.right: parent.right
        store: root.store
    }

    LeftOutNote {
        id: leftOut

        anchors.left: edge.right
        anchors.right: parent.right
        anchors.top: banner.bottom
        anchors.leftMargin: Theme.gap4
        anchors.rightMargin: Theme.gap4
        topPadding: Theme.gap2
        store: root.store
    }

    SectionScreens {
        id: screens

        anchors.left: edge.right
        anchors.right: parent.right
        anchors.top: leftOut.bottom
        anchors.bottom: parent.bottom
        store: root.store
        notifications: root.notifications
        loginItem: root.loginItem
    }

    SplitHandle {
        id: edge

        objectName: "sidebar.width"
        anchors.left: sidebar.right
        height: root.height
        label: "Width of the sidebar"
        extent: sidebar.width
        onMoved: extent => root.sidebarWidthRequested(
            Math.max(root.narrowestSidebar, Math.min(extent, root.widestSidebar)))
        onResetRequested: root.sidebarWidthRequested(root.defaultSidebarWidth)
    }

    SectionKeys {
        store: root.store
        onSectionChosen: root.focusSection()
        onShortcutsRequested: shortcuts.wanted = true
    }

    CreateWorkspaceSheet {
        store: root.store
    }

    NotificationPromptSheet {
        store: root.store
        notifications: root.notifications
    }

    ShortcutsSheet {
        id: shortcuts

        wanted: false
        onClosed: wanted = false
    }
}
