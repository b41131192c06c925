pragma ComponentBehavior: Bound

import Pingwell

/** Invites one person to the active workspace. */
Sheet {
    id: root

    required property TeamModel team

    content: InviteForm {
        width: root.availableWidth
        team: root.team
        onCancelled: root.close()
        onInvited: root.close()
    }
}
