import Pingwell

/** How long the active workspace's asks wait for a reply, and what becomes of them then. */
FormSection {
    id: root

    required property SettingsModel settings
    readonly property responseTimeFacts facts: root.settings.responseTime

    title: "Response time"
    visible: root.facts.isPresent
    footer: root.facts.canManage
            ? "How long an agent's ask waits for a reply in " + root.facts.workspace + ". New asks use the new limit."
            : "Only owners and admins can change this."
    footerIdentifier: root.facts.canManage ? "settings.responseTime.footer" : "settings.responseTime.locked"

    FormRow {
        objectName: "settings.workspace"
        label: "Workspace"
        value: root.facts.workspace
    }

    FormRow {
        label: "Max response time"

        Picker {
            objectName: "settings.responseTimeout"
            enabled: root.facts.canManage
            label: "Max response time"
            values: root.facts.timeouts.values
            labels: root.facts.timeouts.labels
            current: root.facts.timeout
            onChosen: value => root.settings.setTimeout(value)
        }
    }

    FormRow {
        label: "When time runs out"

        Picker {
            objectName: "settings.timeoutAction"
            enabled: root.facts.canManage
            label: "When time runs out"
            values: root.facts.actions.values
            labels: root.facts.actions.labels
            current: root.facts.action
            onChosen: value => root.settings.setTimeoutAction(value)
        }
    }

    FormNote {
        objectName: "settings.timeoutAction.detail"
        text: root.facts.actionDetail
    }
}
