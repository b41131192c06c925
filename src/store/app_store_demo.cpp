#include "store/app_store.h"

#include "desktop/preference_keys.h"

namespace pingwell {

namespace {

/// As the last demo left it, where it may have been chosen on a screen.
void restoreTimeout(Workspace &workspace, const Preferences &preferences)
{
    const double minutes = preferences.number(preference_keys::responseTimeoutMinutes(workspace.id)).value_or(0);
    for (const std::int64_t honoured : {5, 15, 30, 60}) {
        if (minutes == static_cast<double>(honoured))
            workspace.responseTimeoutMinutes = honoured;
    }
    const QString word = preferences.string(preference_keys::timeoutAction(workspace.id)).value_or(QString());
    const auto action = fromRawValue<TimeoutAction>(word);
    if (action && isAllowed(*action, workspace.kind))
        workspace.timeoutAction = *action;
}

} // namespace

void AppStore::chooseFirstWorkspace()
{
    m_navigation.showWorkspace(workspaces().isEmpty() ? QString() : workspaces().first().id);
}

void AppStore::restoreDemo()
{
    const QString word = m_defaults->string(preference_keys::sessionProvider).value_or(QString());
    if (const auto provider = fromRawValue<AuthProvider>(word))
        setAccount(demoAccount(*provider));
    const auto remembered = m_navigation.rememberedWorkspaceID();
    if (remembered && workspaceWithID(*remembered))
        m_navigation.showWorkspace(*remembered);
    QList<Workspace> workspaces = this->workspaces();
    for (Workspace &workspace : workspaces)
        restoreTimeout(workspace, *m_defaults);
    m_records.set(workspaces);
}

void AppStore::signInToDemo(AuthProvider provider)
{
    m_defaults->setString(preference_keys::sessionProvider, rawValue(provider));
    m_records.reset(m_seed);
    chooseFirstWorkspace();
    setAccount(demoAccount(provider));
}

} // namespace pingwell
