pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The invitations that other workspaces have sent to the person; nothing while there are none. */
Column {
    id: root

    required property AppStore store

    visible: rows.count > 0
    spacing: Theme.gap2

    SectionLabel {
        text: "Invitations to you"
    }

    Repeater {
        id: rows

        model: InvitationListModel {
            store: root.store
        }

        delegate: Rectangle {
            id: card

            required property invitationRow invitation

            width: root.width
            height: row.height
            radius: Theme.radiusCard
            color: Theme.card
            border.width: 1
            border.color: Theme.border
            Accessible.ignored: true

            InvitationRow {
                id: row

                width: card.width
                height: implicitHeight
                invitation: card.invitation
                store: root.store
            }
        }
    }
}
