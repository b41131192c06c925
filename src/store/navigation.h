#pragma once

#include "desktop/preferences.h"
#include "model/enumerations.h"
#include "model/inbox_filter.h"
#include "store/announcements.h"

#include <QObject>

#include <memory>
#include <optional>

namespace pingwell {

/// Where the person is: the workspace, the section, what is chosen in it, and which sheet lies over it. Only what is
/// remembered of it outlives a session. Main thread.
class Navigation : public QObject
{
    Q_OBJECT

public:
    explicit Navigation(std::shared_ptr<Preferences> preferences);

    [[nodiscard]] const QString &activeWorkspaceID() const { return m_activeWorkspaceID; }
    [[nodiscard]] SidebarSection section() const { return m_section; }
    [[nodiscard]] const InboxFilter &filter() const { return m_filter; }
    [[nodiscard]] const std::optional<QString> &selectedAlertID() const { return m_selectedAlertID; }
    [[nodiscard]] const QString &requestedReplyID() const { return m_requestedReplyID; }
    [[nodiscard]] bool focusMode() const { return m_focusMode; }
    [[nodiscard]] bool isCreatingWorkspace() const { return m_isCreatingWorkspace; }
    [[nodiscard]] bool showsNotificationPrompt() const { return m_showsNotificationPrompt; }

    void setSection(SidebarSection section);
    void setFilter(const InboxFilter &filter);
    /// Empty: none.
    void selectAlert(const QString &alertID);
    void requestReply(const QString &alertID);
    void setFocusMode(bool on);
    void setIsCreatingWorkspace(bool creating);

    /// Goes to a workspace, whose alerts are others, and remembers it.
    void enterWorkspace(const QString &workspaceID);
    /// Shows a workspace without having been asked to.
    void showWorkspace(const QString &workspaceID);
    /// The same together with other changes.
    void showWorkspace(QString workspaceID, Announcements &announcements);
    [[nodiscard]] std::optional<QString> rememberedWorkspaceID() const;
    void clearSelectionAndFilter();

    /// Opens the sheet that asks for notifications, once an account.
    void showNotificationPrompt();
    void dismissNotificationPrompt();

    /// The session is over.
    void reset();

signals:
    void activeWorkspaceIDChanged();
    void sectionChanged();
    void filterChanged();
    void selectedAlertIDChanged();
    void requestedReplyIDChanged();
    void focusModeChanged();
    void isCreatingWorkspaceChanged();
    void showsNotificationPromptChanged();

private:
    template<typename Value>
    void set(Value &field, Value value, void (Navigation::*changed)());

    std::shared_ptr<Preferences> m_preferences;
    QString m_activeWorkspaceID;
    SidebarSection m_section = SidebarSection::inbox;
    InboxFilter m_filter;
    std::optional<QString> m_selectedAlertID;
    QString m_requestedReplyID;
    bool m_focusMode = false;
    bool m_isCreatingWorkspace = false;
    bool m_showsNotificationPrompt = false;
};

} // namespace pingwell
