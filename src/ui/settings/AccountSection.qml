import Pingwell

/** Who is signed in. */
FormSection {
    id: root

    required property accountFacts account

    title: "Account"
    visible: root.account.isPresent

    FormRow {
        objectName: "settings.account.name"
        label: "Name"
        value: root.account.name
    }

    FormRow {
        objectName: "settings.account.email"
        label: "Email"
        value: root.account.email
    }

    FormRow {
        objectName: "settings.account.provider"
        label: "Signed in with"
        value: root.account.provider
    }

    FormRow {
        label: "Plan"
        value: root.account.plan
    }
}
