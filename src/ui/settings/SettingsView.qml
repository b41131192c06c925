import QtQuick
import Pingwell

/** The settings section of the main screen. */
ScrollArea {
    id: root

    required property AppStore store
    // Null where the program leaves the desktop alone.
    property NotificationAccess notifications: null
    property LoginItemAccess loginItem: null

    objectName: "settings.scroll"
    Accessible.role: Accessible.Pane
    Accessible.name: "Settings"
    contentHeight: form.height + 2 * Theme.gap5

    SettingsModel {
        id: settings

        store: root.store
    }

    Column {
        id: form

        x: Theme.gap7
        y: Theme.gap5
        width: Math.min(root.width - 2 * x, Theme.contentWidth)
        spacing: Theme.gap5

        ScreenHeader {
            width: parent.width
            title: "Settings"
        }

        AccountSection {
            width: parent.width
            account: settings.account
        }

        ServerSection {
            width: parent.width
            store: root.store
            lastSyncedAt: settings.lastSyncedAt
        }

        ResponseTimeSection {
            width: parent.width
            settings: settings
        }

        ThisMacSection {
            width: parent.width
            notifications: root.notifications
            loginItem: root.loginItem
        }

        NotificationsSection {
            width: parent.width
            settings: settings
        }

        DevicesSection {
            width: parent.width
            store: root.store
        }

        AccountActions {
            width: parent.width
            store: root.store
        }
    }
}
