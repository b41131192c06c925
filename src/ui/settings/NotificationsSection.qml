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
            values: root.settings.hours
            labels: root.settings.hours
            current: root.facts.quietFrom
            currentLabel: root.facts.quietFromLabel
            onChosen: value => root.settings.setQuietFrom(value)
        }
    }

    FormRow {
        visible: root.facts.quietHours
        label: "To"

        Picker {
            objectName: "settings.quietTo"
            label: "To"
            values: root.settings.hours
            labels: root.settings.hours
            current: root.facts.quietTo
            currentLabel: root.facts.quietToLabel
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
