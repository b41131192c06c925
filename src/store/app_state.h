#pragma once

#include "model/account.h"
#include "store/live_sync.h"
#include "store/merge.h"
#include "store/notifications.h"
#include "store/sign_in.h"
#include "store/toast_line.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <memory>
#include <optional>

namespace pingwell {

/// What the screens read of the one state of the program: the parts that hold it, behind one face that announces every
/// real change. What can be done with it is `AppStore`'s. Main thread.
class AppState : public QObject
{
    Q_OBJECT

    // What QML reads: enumerations as raw words, absent texts as empty ones, instants as milliseconds since 1970.
    Q_PROPERTY(double now READ nowMilliseconds NOTIFY nowChanged)
    Q_PROPERTY(bool isSignedIn READ isSignedIn NOTIFY accountChanged)
    Q_PROPERTY(bool hasLoaded READ hasLoaded NOTIFY hasLoadedChanged)
    Q_PROPERTY(bool hasWorkspaces READ hasWorkspaces NOTIFY workspacesChanged)
    Q_PROPERTY(QString connectionProblem READ connectionProblemText NOTIFY connectionProblemChanged)
    /// What of the service's records can't be shown, in words; empty when all can.
    Q_PROPERTY(QString leftOut READ leftOut NOTIFY leftOutChanged)
    Q_PROPERTY(QString serverLabel READ serverLabel NOTIFY serverChanged)
    Q_PROPERTY(QString activeWorkspaceID READ activeWorkspaceID NOTIFY activeWorkspaceIDChanged)
    Q_PROPERTY(bool isSigningIn READ isSigningIn NOTIFY isSigningInChanged)
    Q_PROPERTY(QString signInError READ signInErrorText NOTIFY signInErrorChanged)
    /// The page being waited for, to be opened by hand, and the server it belongs to; empty while nobody signs in.
    Q_PROPERTY(QString signInLink READ signInLink NOTIFY isSigningInChanged)
    Q_PROPERTY(QString signInHost READ signInHost NOTIFY isSigningInChanged)
    Q_PROPERTY(QStringList availableProviders READ availableProviderWords NOTIFY availableProvidersChanged)
    Q_PROPERTY(bool showsNotificationPrompt READ showsNotificationPrompt NOTIFY showsNotificationPromptChanged)
    Q_PROPERTY(QString toastMessage READ toastMessage NOTIFY toastChanged)
    Q_PROPERTY(bool toastIsError READ toastIsError NOTIFY toastChanged)
    Q_PROPERTY(int unreadCount READ unreadCount NOTIFY unreadCountChanged)

public:
    ~AppState() override;

    [[nodiscard]] const QList<Alert> &alerts() const { return m_records.all<Alert>(); }
    [[nodiscard]] const QList<Topic> &topics() const { return m_records.all<Topic>(); }
    [[nodiscard]] const QList<Device> &devices() const { return m_records.all<Device>(); }
    [[nodiscard]] const NotificationSettings &settings() const { return m_records.settings(); }
    [[nodiscard]] const QList<Workspace> &workspaces() const { return m_records.all<Workspace>(); }
    [[nodiscard]] const QMap<QString, QList<Member>> &members() const { return m_records.members(); }
    [[nodiscard]] const QList<Invitation> &invitations() const { return m_records.all<Invitation>(); }
    [[nodiscard]] const std::optional<Account> &account() const { return m_account; }
    [[nodiscard]] const APIClientPtr &client() const { return m_client; }
    [[nodiscard]] bool isLive() const { return m_backend != nullptr; }
    [[nodiscard]] bool isSignedIn() const { return m_account.has_value(); }

    [[nodiscard]] ServerKind server() const { return m_servers.kind(); }
    [[nodiscard]] const QString &selfHostedURL() const { return m_servers.selfHostedURL(); }
    /// The address a new session is made against; none when the self-hosted one isn't an address.
    [[nodiscard]] std::optional<QUrl> effectiveBaseURL() const { return m_servers.baseURL(); }
    [[nodiscard]] const QList<AuthProvider> &availableProviders() const { return m_servers.providers(); }
    [[nodiscard]] bool isSigningIn() const { return m_signIn.isUnderWay(); }
    [[nodiscard]] const std::optional<QString> &signInError() const { return m_signIn.error(); }

    /// The service's time where its answers have told it, else this computer's.
    [[nodiscard]] Instant now() const { return m_ticker.now(); }
    [[nodiscard]] bool hasLoaded() const { return m_merge.hasLoaded(); }
    [[nodiscard]] const QString &leftOut() const { return m_merge.leftOut(); }
    [[nodiscard]] const std::optional<QString> &connectionProblem() const { return m_sync.problem(); }
    [[nodiscard]] const std::optional<Instant> &lastSyncedAt() const { return m_sync.lastSyncedAt(); }
    /// Changes of the person's are on their way to the service, and no dashboard may be merged meanwhile.
    [[nodiscard]] bool hasMutationsInFlight() const { return m_mutations.areInFlight(); }
    /// Something that the person did has not been answered by the service yet; the program had better not end.
    [[nodiscard]] bool hasUnfinishedWork() const { return m_unfinishedWork.isAny(); }

    [[nodiscard]] const QString &activeWorkspaceID() const { return m_navigation.activeWorkspaceID(); }
    [[nodiscard]] SidebarSection section() const { return m_navigation.section(); }
    [[nodiscard]] const InboxFilter &filter() const { return m_navigation.filter(); }
    [[nodiscard]] const std::optional<QString> &selectedAlertID() const { return m_navigation.selectedAlertID(); }
    [[nodiscard]] const QString &requestedReplyID() const { return m_navigation.requestedReplyID(); }
    [[nodiscard]] bool focusMode() const { return m_navigation.focusMode(); }
    [[nodiscard]] bool isCreatingWorkspace() const { return m_navigation.isCreatingWorkspace(); }
    [[nodiscard]] bool showsNotificationPrompt() const { return m_navigation.showsNotificationPrompt(); }
    [[nodiscard]] const std::optional<Toast> &toast() const { return m_toasts.toast(); }
    [[nodiscard]] const QHash<QString, QString> &replyDrafts() const { return m_replyDrafts; }
    Q_INVOKABLE QString replyDraft(const QString &alertID) const { return m_replyDrafts.value(alertID); }

    // Derived views, computed on every read.
    [[nodiscard]] std::optional<Workspace> activeWorkspace() const;
    [[nodiscard]] std::optional<Workspace> workspaceWithID(const QString &id) const;
    /// The active workspace's alerts, newest first; equal times keep the order received.
    [[nodiscard]] QList<Alert> activeAlerts() const;
    /// `activeAlerts` through the inbox filter.
    [[nodiscard]] QList<Alert> filteredAlerts() const;
    [[nodiscard]] QList<Topic> activeTopics() const;
    [[nodiscard]] QStringList activeTopicNames() const;
    [[nodiscard]] std::optional<Topic> topicNamed(const QString &name) const;
    [[nodiscard]] std::optional<Alert> selectedAlert() const;
    [[nodiscard]] std::optional<Alert> alertWithID(const QString &id) const;
    [[nodiscard]] qsizetype unreadCount() const;
    /// The asks of the active workspace that can still be answered, newest first.
    [[nodiscard]] QList<Alert> needsReply() const;
    /// The length of `needsReply`: the number in the menu bar.
    [[nodiscard]] qsizetype needsReplyCount() const;
    /// The active workspace's alerts of the 24 hours before `at` (or now) that wait for nothing, newest first: without
    /// muted topics and, in focus mode, without those below high priority.
    [[nodiscard]] QList<Alert> todayAlerts(std::optional<Instant> at = std::nullopt) const;
    [[nodiscard]] QString serverLabel() const;
    [[nodiscard]] std::optional<ReplyState> replyState(const Alert &alert) const { return alert.replyState(now()); }
    [[nodiscard]] bool canAnswer(const Alert &alert) const;
    [[nodiscard]] bool canSendTestAlert() const;
    /// What became of an ask that nobody answered, in one sentence.
    [[nodiscard]] QString outcomeText(const Alert &alert) const;

signals:
    void alertsChanged();
    void topicsChanged();
    void devicesChanged();
    void settingsChanged();
    void workspacesChanged();
    void membersChanged();
    void invitationsChanged();
    void accountChanged();
    void serverChanged();
    void selfHostedURLChanged();
    void focusModeChanged();
    void activeWorkspaceIDChanged();
    void nowChanged();
    void hasLoadedChanged();
    void isSigningInChanged();
    void signInErrorChanged();
    void connectionProblemChanged();
    void leftOutChanged();
    void lastSyncedAtChanged();
    void availableProvidersChanged();
    void toastChanged();
    void sectionChanged();
    void filterChanged();
    void selectedAlertIDChanged();
    void requestedReplyIDChanged();
    void isCreatingWorkspaceChanged();
    void showsNotificationPromptChanged();
    void replyDraftChanged(const QString &alertID);
    void unreadCountChanged();
    /// All that the person did has been answered by the service, one way or the other.
    void workEnded();

protected:
    /// What the parts leave to the operations.
    struct Handlers
    {
        std::function<void(const APIError &)> tellFailure;
        LiveSync::Surroundings sync;
        SignIn::Surroundings signIn;
    };

    AppState(const SeedData &seed, const std::shared_ptr<Preferences> &preferences, Instant now,
             std::shared_ptr<Backend> backend, const std::shared_ptr<Clock> &clock, Handlers handlers, QObject *parent);

    void setAccount(const std::optional<Account> &account);

    const std::shared_ptr<Backend> m_backend;
    UnfinishedWork m_unfinishedWork{[this] { emit workEnded(); }};
    Records m_records;
    Navigation m_navigation;
    ServerChoice m_servers;
    ToastLine m_toasts;
    Ticker m_ticker;
    Mutations m_mutations;
    FieldChanges m_changes{m_records, m_mutations};
    UnreadOverrides m_unreadOverrides;
    Merge m_merge;
    LiveSync m_sync;
    SignIn m_signIn;
    Notifications m_notifications;
    APIClientPtr m_client;
    QHash<QString, QString> m_replyDrafts;

private:
    double nowMilliseconds() const { return millisecondsFromInstant(now()); }
    bool hasWorkspaces() const { return !workspaces().isEmpty(); }
    QString connectionProblemText() const { return connectionProblem().value_or(QString()); }
    QString signInErrorText() const { return signInError().value_or(QString()); }
    QString signInLink() const { return m_signIn.page().toString(QUrl::FullyEncoded); }
    QString signInHost() const { return m_signIn.page().host(); }
    QStringList availableProviderWords() const;
    QString toastMessage() const { return toast() ? toast()->message : QString(); }
    bool toastIsError() const { return toast() && toast()->isError; }

    // What the parts announce, the state announces.
    void followRecords();
    void followNavigation();
    void followService();

    std::optional<Account> m_account;
};

} // namespace pingwell
