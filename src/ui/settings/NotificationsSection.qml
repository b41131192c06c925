import Pingwell

/** When and how the person is notified, on every device. */
FormSection {
    id: root

    required property SettingsModel settings
    readonly property notificationFacts facts: root.settings.notifications

    title: "Notifications"

    FormToggle {
        objectName: "settings.quietHours"
        label: "Quiet hours"
        on: root.facts.quietHours
        onToggleRequested: on => root.settings.setQuietHours(on)
    }

    FormRow {
        visible: root.facts.quietHours
        label: "From"

        Picker {
            objectName: "settings.quietFrom"
            label: "From"
            values: root.facts.quietFromChoices.values
            labels: root.facts.quietFromChoices.labels
            current: root.facts.quietFrom
            onChosen: value => root.settings.setQuietFrom(value)
        }
    }

    FormRow {
        visible: root.facts.quietHours
        label: "To"

        Picker {
            objectName: "settings.quietTo"
            label: "To"
            values: root.facts.quietToChoices.values
            labels: root.facts.quietToChoices.labels
            current: root.facts.quietTo
            onChosen: value => root.settings.setQuietTo(value)
        }
    }

    FormToggle {
        objectName: "settings.digest"
        label: "Daily digest email"
        on: root.facts.digest
        onToggleRequested: on => root.settings.setDigest(on)
    }

    FormToggle {
        objectName: "settings.sound"
        label: "Play sound"
        on: root.facts.sound
        onToggleRequested: on => root.settings.setSound(on)
    }
}
