#pragma once

#include "api/api_client.h"
#include "api/dashboard.h"
#include "async/clock.h"
#include "desktop/preferences.h"
#include "model/enumerations.h"
#include "model/inbox_filter.h"
#include "model/invitation.h"
#include "model/toast.h"
#include "store/attention.h"
#include "store/backend.h"
#include "store/field_changes.h"
#include "store/left_asks.h"
#include "store/mutations.h"
#include "store/notification_mark.h"
#include "store/records.h"
#include "store/refused_session.h"
#include "store/service_clock.h"
#include "store/stored_session.h"
#include "store/unread_overrides.h"
#include "store/waiting_asks.h"

#include <QCoroTask>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace pingwell {

/// The one state of the program: the person's data, what the windows show of it, and the way to the service. Screens
/// read it and call its operations; they never talk to the service. An operation that may not be done is ignored, one
/// that the service refuses is undone and told as a toast. Everything here runs on the main thread; a call from another
/// one stops the program.
class AppStore : public QObject
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
    Q_PROPERTY(bool focusMode READ focusMode WRITE setFocusMode NOTIFY focusModeChanged)
    Q_PROPERTY(QString activeWorkspaceID READ activeWorkspaceID NOTIFY activeWorkspaceIDChanged)
    Q_PROPERTY(QString section READ sectionWord WRITE setSectionWord NOTIFY sectionChanged)
    Q_PROPERTY(QString selectedAlertID READ selectedAlertIDText WRITE selectAlert NOTIFY selectedAlertIDChanged)
    Q_PROPERTY(QString requestedReplyID READ requestedReplyID WRITE requestReply NOTIFY requestedReplyIDChanged)
    Q_PROPERTY(bool isCreatingWorkspace READ isCreatingWorkspace WRITE setIsCreatingWorkspace NOTIFY
                   isCreatingWorkspaceChanged)
    Q_PROPERTY(bool isSigningIn READ isSigningIn NOTIFY isSigningInChanged)
    Q_PROPERTY(QString signInError READ signInErrorText NOTIFY signInErrorChanged)
    /// The page being waited for, to be opened by hand, and the server it belongs to; empty while nobody signs in.
    Q_PROPERTY(QString signInLink READ signInLink NOTIFY isSigningInChanged)
    Q_PROPERTY(QString signInHost READ signInHost NOTIFY isSigningInChanged)
    Q_PROPERTY(QStringList availableProviders READ availableProviderWords NOTIFY availableProvidersChanged)
    Q_PROPERTY(QString server READ serverWord WRITE setServerWord NOTIFY serverChanged)
    Q_PROPERTY(QString selfHostedURL READ selfHostedURL WRITE setSelfHostedURL NOTIFY selfHostedURLChanged)
    Q_PROPERTY(bool showsNotificationPrompt READ showsNotificationPrompt NOTIFY showsNotificationPromptChanged)
    Q_PROPERTY(QString toastMessage READ toastMessage NOTIFY toastChanged)
    Q_PROPERTY(bool toastIsError READ toastIsError NOTIFY toastChanged)
    Q_PROPERTY(int unreadCount READ unreadCount NOTIFY unreadCountChanged)

public:
    /// Without `backend` the store is a demo of `seed`; with one it restores the persisted session at once, without
    /// touching the network. Without `defaults` nothing is remembered.
    AppStore(SeedData seed, bool signedIn, std::shared_ptr<Preferences> defaults, Instant now,
             std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, QObject *parent = nullptr);
    ~AppStore() override;

    // State.
    [[nodiscard]] const QList<Alert> &alerts() const { return m_records.all<Alert>(); }
    [[nodiscard]] const QList<Topic> &topics() const { return m_records.all<Topic>(); }
    [[nodiscard]] const QList<Device> &devices() const { return m_records.all<Device>(); }
    [[nodiscard]] const NotificationSettings &settings() const { return m_records.settings(); }
    [[nodiscard]] const QList<Workspace> &workspaces() const { return m_records.all<Workspace>(); }
    [[nodiscard]] const QMap<QString, QList<Member>> &members() const { return m_records.members(); }
    [[nodiscard]] const QList<Invitation> &invitations() const { return m_records.all<Invitation>(); }
    [[nodiscard]] const std::optional<Account> &account() const { return m_account; }
    [[nodiscard]] ServerKind server() const { return m_server; }
    [[nodiscard]] const QString &selfHostedURL() const { return m_selfHostedURL; }
    [[nodiscard]] bool focusMode() const { return m_focusMode; }
    [[nodiscard]] const QString &activeWorkspaceID() const { return m_activeWorkspaceID; }
    /// The service's time where its answers have told it, else this computer's.
    [[nodiscard]] Instant now() const { return m_now; }
    [[nodiscard]] bool hasLoaded() const { return m_hasLoaded; }
    /// Changes of the person's are on their way to the service, and no dashboard may be merged meanwhile.
    [[nodiscard]] bool hasMutationsInFlight() const { return m_mutations.areInFlight(); }
    /// Something that the person did has not been answered by the service yet; the program had better not end.
    [[nodiscard]] bool hasUnfinishedWork() const { return m_unfinishedWork.isAny(); }
    [[nodiscard]] bool isSigningIn() const { return m_isSigningIn; }
    [[nodiscard]] const std::optional<QString> &signInError() const { return m_signInError; }
    [[nodiscard]] const std::optional<QString> &connectionProblem() const { return m_connectionProblem; }
    [[nodiscard]] const QString &leftOut() const { return m_leftOut; }
    [[nodiscard]] const std::optional<Instant> &lastSyncedAt() const { return m_lastSyncedAt; }
    [[nodiscard]] const QList<AuthProvider> &availableProviders() const { return m_availableProviders; }
    [[nodiscard]] const std::optional<Toast> &toast() const { return m_toast; }
    [[nodiscard]] SidebarSection section() const { return m_section; }
    [[nodiscard]] const InboxFilter &filter() const { return m_filter; }
    [[nodiscard]] const std::optional<QString> &selectedAlertID() const { return m_selectedAlertID; }
    [[nodiscard]] const QString &requestedReplyID() const { return m_requestedReplyID; }
    [[nodiscard]] bool isCreatingWorkspace() const { return m_isCreatingWorkspace; }
    [[nodiscard]] bool showsNotificationPrompt() const { return m_showsNotificationPrompt; }
    [[nodiscard]] const QHash<QString, QString> &replyDrafts() const { return m_replyDrafts; }
    [[nodiscard]] const APIClientPtr &client() const { return m_client; }
    [[nodiscard]] bool isLive() const { return m_backend != nullptr; }

    // Derived views, computed on every read.
    [[nodiscard]] bool isSignedIn() const { return m_account.has_value(); }
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
    [[nodiscard]] std::optional<ReplyState> replyState(const Alert &alert) const { return alert.replyState(m_now); }
    [[nodiscard]] bool canAnswer(const Alert &alert) const;
    [[nodiscard]] bool canSendTestAlert() const;
    /// What became of an ask that nobody answered, in one sentence.
    [[nodiscard]] QString outcomeText(const Alert &alert) const;
    /// The text that an unanswered ask's countdown shows at `instant`; a row is redrawn when it changes.
    [[nodiscard]] static QString countdownKey(const Alert &alert, Instant instant);
    [[nodiscard]] bool countdownChanged(const Alert &alert, Instant earlier) const;

    Q_INVOKABLE QString replyDraft(const QString &alertID) const { return m_replyDrafts.value(alertID); }

    // Navigation.
    void setSection(SidebarSection section);
    void setFilter(const InboxFilter &filter);
    Q_INVOKABLE void selectAlert(const QString &alertID);
    void setIsCreatingWorkspace(bool creating);
    Q_INVOKABLE void selectWorkspace(const QString &workspaceID);
    /// Opens the alert in the inbox, in its own workspace.
    Q_INVOKABLE void revealAlert(const QString &alertID);
    /// Wants the reply field of that alert focused wherever it is or will be shown; empty: no field any more.
    Q_INVOKABLE void requestReply(const QString &alertID);
    void setFocusMode(bool on);
    void setServer(ServerKind server);
    void setSelfHostedURL(const QString &text);

    // Alerts.
    /// Keeps what is being typed, cut to `maximumAnswerLength` units without splitting a character.
    Q_INVOKABLE void setReplyDraft(const QString &text, const QString &alertID);
    Q_INVOKABLE void answer(const QString &alertID, const QString &text);
    /// The same, for an answer given in a notification: there a refusal is told even where nothing could be sent.
    void answerFromNotification(const QString &alertID, const QString &text);
    Q_INVOKABLE void setRead(const QString &alertID, bool read);
    Q_INVOKABLE void toggleRead(const QString &alertID);
    Q_INVOKABLE void markAllRead();
    Q_INVOKABLE void deleteAlert(const QString &alertID);
    Q_INVOKABLE void sendTestAlert();

    // Workspaces. What changes one acts on the active one, and only for those who may.
    Q_INVOKABLE void createWorkspace(const QString &name);
    Q_INVOKABLE void renameWorkspace(const QString &name);
    /// Leaves it, or deletes it for everyone when the person owns it; only once the service has confirmed.
    Q_INVOKABLE void leaveWorkspace();
    void setResponseTimeout(std::int64_t minutes);
    void setTimeoutAction(TimeoutAction action);

    // Members of the active workspace, and invitations to others.
    [[nodiscard]] bool managesActiveTeam() const;
    /// Why nobody was invited, or none; a refusal of the service comes later, as a toast.
    std::optional<InviteError> invite(const QString &email, WorkspaceRole role);
    [[nodiscard]] bool canChangeRole(const Member &member) const;
    void changeRole(const QString &memberID, WorkspaceRole role);
    /// Whether the person may remove the member or take the invitation back.
    [[nodiscard]] bool canRemoveMember(const Member &member) const;
    Q_INVOKABLE void removeMember(const QString &memberID);
    [[nodiscard]] bool canResendInvitation(const Member &member) const;
    Q_INVOKABLE void resendInvitation(const QString &memberID);
    Q_INVOKABLE void acceptInvitation(const QString &token);
    Q_INVOKABLE void rejectInvitation(const QString &token);

    // Topics.
    /// Creates one in the active workspace, under the `slug` of the name.
    Q_INVOKABLE void createTopic(const QString &name);
    Q_INVOKABLE void setTopicMuted(const QString &topicID, bool muted);
    void setTopicMinPriority(const QString &topicID, Priority priority);
    Q_INVOKABLE void setTopicQuietHours(const QString &topicID, bool quietHours);
    Q_INVOKABLE void deleteTopic(const QString &topicID);

    // The person's own.
    void updateSettings(const std::function<void(NotificationSettings &)> &change);
    /// This computer at the service; empty when it is not registered there.
    [[nodiscard]] QString deviceIdentifier() const;
    /// Signs another device out; this computer's own is left alone.
    Q_INVOKABLE void removeDevice(const QString &deviceID);
    /// Ends the session once the service has deleted the account.
    Q_INVOKABLE void deleteAccount();

    // Session.
    /// The address a new session is made against; none when the self-hosted one isn't an address.
    [[nodiscard]] std::optional<QUrl> effectiveBaseURL() const;
    /// Signs in through the browser with that provider, by its raw word; in the demo at once.
    Q_INVOKABLE void signIn(const QString &provider);
    /// Ends a sign-in under way as a closed browser would: without a message. What the browser brings later is ignored.
    Q_INVOKABLE void cancelSignIn();
    /// Asks the chosen server which providers it offers.
    Q_INVOKABLE void refreshProviders();
    void persistSession(const QString &token, const QUrl &baseURL, const Account &account);
    Q_INVOKABLE void signOut();
    /// Ends the session and erases everything of it; `message` is shown on the sign-in screen.
    void endSession(const std::optional<QString> &message);

    // The live loop.
    /// Lets `now` follow the clock: once a second, or while nobody looks at each poll and when an ask's time is up.
    void startClock();
    void setWatched(bool watched);
    /// Who knows what the person looks at; without one nobody looks.
    void setAttention(Attention attention) { m_attention = std::move(attention); }
    /// (Re)starts following the service; does nothing without a session or in demo mode.
    void startSync();
    /// Fetches the dashboard and merges it, unless a fetch is under way.
    Q_INVOKABLE void refresh();
    /// The same over new connections: after a sleep or in another network, kept ones may be dead without showing it.
    void reconnect();

    /// Opens the sheet that asks for notifications, once an account.
    void considerNotificationPrompt(NotificationPermission permission);
    Q_INVOKABLE void dismissNotificationPrompt();

    /// Shows a message for a few seconds; an empty one is none.
    Q_INVOKABLE void showToast(const QString &message, bool isError);

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

private:
    class RefreshInProgress;
    // What stands behind the operations, each group in the file of its subject.
    struct StartSteps;
    struct ClockSteps;
    struct SessionSteps;
    struct SignInSteps;
    struct ProviderSteps;
    struct SyncSteps;
    struct MergeSteps;

    double nowMilliseconds() const { return millisecondsFromInstant(m_now); }
    bool hasWorkspaces() const { return !workspaces().isEmpty(); }
    QString connectionProblemText() const { return m_connectionProblem.value_or(QString()); }
    QString selectedAlertIDText() const { return m_selectedAlertID.value_or(QString()); }
    QString signInErrorText() const { return m_signInError.value_or(QString()); }
    QString signInLink() const { return m_signInPage.toString(QUrl::FullyEncoded); }
    QString signInHost() const { return m_signInPage.host(); }
    QStringList availableProviderWords() const;
    QString serverWord() const { return rawValue(m_server); }
    void setServerWord(const QString &word);
    QString toastMessage() const { return m_toast ? m_toast->message : QString(); }
    bool toastIsError() const { return m_toast && m_toast->isError; }
    QString sectionWord() const { return rawValue(m_section); }
    void setSectionWord(const QString &word);

    /// Stores and announces a real change.
    template<typename Value>
    void set(Value &field, Value value, void (AppStore::*changed)())
    {
        if (field == value)
            return;
        field = std::move(value);
        emit(this->*changed)();
    }
    void checkMainThread() const;

    // What several subjects share.
    /// Reads the clock, and reckons anew when it is to tick.
    void takeTime();
    [[nodiscard]] Instant serviceNow() const { return m_serviceClock.now(*m_clock); }
    void chooseFirstWorkspace();
    void clearSelectionAndFilter();
    /// Tells the person, once, when what they have just set will be forgotten.
    void tellIfForgotten();
    void keepDraft(const QString &alertID, const QString &text);
    void removeReplyDraft(const QString &alertID);
    /// Gives the answer. Where that may not be done nothing has happened, and the reason is returned.
    std::optional<AnswerRefusal> submitAnswer(const QString &alertID, const QString &text);
    void sendAnswer(const Alert &before, const QString &answer);
    /// The service refused, or can't be reached; the answer given to `before` has been undone.
    void answerRefused(const Alert &before, const QString &message);
    void tellRefusal(const Alert &alert, const AnswerRefusal &refusal);
    /// Takes in the test alert that the service made, and announces it.
    void receiveTestAlert(Alert alert);
    /// Takes the invitation off the list, and tells the service by `operation`.
    void takeInvitation(const QString &token, decltype(Mutation::operation) operation);
    template<typename Value>
    void changeTopic(const QString &topicID, Value Topic::*member, const Value &value, const QString &key);
    /// Changes one field of the active workspace, which the service calls `key`.
    template<typename Value>
    void changeWorkspace(Value Workspace::*member, const Value &value, const QString &key);
    void rememberTimeout();
    void enterNewWorkspace(const Workspace &workspace, const QList<Member> &members);
    void dropWorkspace(const QString &workspaceID);
    [[nodiscard]] std::optional<Member> activeMember(const QString &memberID) const;
    /// The member who existed here alone is known to the service as `member`, or not at all.
    void replaceProvisional(const QString &workspaceID, const QString &memberID, const std::optional<Member> &member);
    static QCoro::Task<> runDeleteAccount(QPointer<AppStore> store, APIClientPtr client,
                                          std::shared_ptr<const void> work);
    void withdrawNotifications(const QStringList &alertIDs);
    /// Takes the buttons from the screen that ask for answers to what waits for none any more.
    void endNotifications();
    /// Takes note of what a killed run left on the screen, before the preferences forget whose it was.
    void findLeftAsks();
    /// Announces again, once, what of it still waits.
    void settleLeftAsks();
    [[nodiscard]] std::optional<QString> workspaceName(const QString &workspaceID) const;
    /// Follows the parts: what they announce, the store announces.
    void followParts();
    void mutationEnded(Mutations::Ending ending);
    [[nodiscard]] bool isRefreshing() const { return m_client && m_refreshingClient == m_client; }
    void refreshIfOwed();
    /// Tells why something that the person wanted was not done; ends the session where it has ended at the service.
    void tellFailure(const APIError &error);
    /// Shows a notification of the program's own, unless a window with the focus can tell the person.
    void notifyUnlessWatching(const QString &identifier, const QString &title, const QString &message) const;
    void openStoredSession();
    void restoreSession();
    /// Takes up a session that the keyring gave out late, unless there is one by now or is going to be.
    void restoreLateSession();
    void saveAccount(const Account &account);
    /// Ends the session because the service refused it, in these words, and tells the person wherever they are. What
    /// they typed is kept until somebody signs in.
    void endRefusedSession(const QString &message);
    /// An answer given in the session of `client` failed; where that session has ended with it or before, it is told.
    void noteUnsentAnswer(const APIClientPtr &client, const Alert &alert, const QString &text, const APIError &error);
    /// An answer to an ask that the store doesn't hold any more was not accepted.
    void tellRefusalOfGone(const QString &alertID, const QString &reason) const;
    void tellRefusedSession();
    /// Ends the sign-in under way, also one that waits unseen for the browser to come back once more.
    void closeSignIn();
    void refreshProvidersSoon();
    void takeAccount(const Account &account);
    void applyDashboard(FetchedDashboard fetched);
    /// Whose notification mark it is while this account is signed in.
    [[nodiscard]] QString markOwner(const std::optional<Account> &account) const;

    SeedData m_seed;
    std::shared_ptr<Preferences> m_defaults;
    std::shared_ptr<Backend> m_backend;
    std::shared_ptr<Clock> m_clock;

    UnfinishedWork m_unfinishedWork{[this] { emit workEnded(); }};
    Records m_records;
    Mutations m_mutations;
    FieldChanges m_changes{m_records, m_mutations};
    std::optional<Account> m_account;
    ServerKind m_server = ServerKind::cloud;
    QString m_selfHostedURL;
    bool m_focusMode = false;
    QString m_activeWorkspaceID;
    Instant m_now;
    bool m_isWatched = true;
    Attention m_attention;
    bool m_hasLoaded = false;
    bool m_isSigningIn = false;
    std::optional<QString> m_signInError;
    std::optional<QString> m_connectionProblem;
    QString m_leftOut;
    std::optional<Instant> m_lastSyncedAt;
    QList<AuthProvider> m_availableProviders{AuthProvider::google, AuthProvider::github};
    std::optional<Toast> m_toast;
    SidebarSection m_section = SidebarSection::inbox;
    InboxFilter m_filter;
    std::optional<QString> m_selectedAlertID;
    QString m_requestedReplyID;
    bool m_isCreatingWorkspace = false;
    bool m_showsNotificationPrompt = false;
    QHash<QString, QString> m_replyDrafts;
    APIClientPtr m_client;
    std::stop_source m_clockTask{std::nostopstate};
    std::stop_source m_syncTask{std::nostopstate};
    std::stop_source m_toastTask{std::nostopstate};
    std::stop_source m_providersTask{std::nostopstate};
    std::stop_source m_signInTask{std::nostopstate};
    QUrl m_signInPage;
    /// None in the demo.
    std::unique_ptr<StoredSession> m_session;
    RefusedSession m_refusedSession;
    /// Members that exist here alone until the service answers their invitation.
    QSet<QString> m_provisionalMembers;
    /// Whose dashboard request is outstanding; that of an earlier session does not hold up the next one's.
    APIClientPtr m_refreshingClient;
    /// A refused change still waits for a refresh that may be applied.
    bool m_refreshIsOwed = false;
    /// Invitations were answered across a change of the person's, and have to be asked for again.
    bool m_invitationsAreOwed = false;
    ServiceClock m_serviceClock;
    NotificationMark m_notificationMark;
    UnreadOverrides m_unreadOverrides;
    WaitingAsks m_waitingAsks;
    LeftAsks m_leftAsks;
    bool m_toldOfForgetting = false;
    /// The dashboard last merged, and the epoch it was merged in: the same bytes in the same epoch change nothing.
    QByteArray m_appliedBody;
    qint64 m_appliedEpoch = -1;
};

} // namespace pingwell
