#pragma once

#include "store/app_state.h"
#include "store/refused_session.h"
#include "store/stored_session.h"

#include <functional>

namespace pingwell {

/// The one state of the program, and what a person can do with it: the screens read it and call its operations; they
/// never talk to the service. An operation that may not be done is ignored, one that the service refuses is undone and
/// told as a toast. Everything here runs on the main thread; a call from another one stops the program.
class AppStore : public pingwell::AppState // The linter of the screens looks the name up as it stands here.
{
    Q_OBJECT

    // What QML also writes; enumerations as raw words, absent texts as empty ones.
    Q_PROPERTY(bool focusMode READ focusMode WRITE setFocusMode NOTIFY focusModeChanged)
    Q_PROPERTY(QString section READ sectionWord WRITE setSectionWord NOTIFY sectionChanged)
    Q_PROPERTY(QString selectedAlertID READ selectedAlertIDText WRITE selectAlert NOTIFY selectedAlertIDChanged)
    Q_PROPERTY(QString requestedReplyID READ requestedReplyID WRITE requestReply NOTIFY requestedReplyIDChanged)
    Q_PROPERTY(bool isCreatingWorkspace READ isCreatingWorkspace WRITE setIsCreatingWorkspace NOTIFY
                   isCreatingWorkspaceChanged)
    Q_PROPERTY(QString server READ serverWord WRITE setServerWord NOTIFY serverChanged)
    Q_PROPERTY(QString selfHostedURL READ selfHostedURL WRITE setSelfHostedURL NOTIFY selfHostedURLChanged)

public:
    /// Without `backend` the store is a demo of `seed`; with one it restores the persisted session at once, without
    /// touching the network. Without `defaults` nothing is remembered.
    AppStore(SeedData seed, bool signedIn, std::shared_ptr<Preferences> defaults, Instant now,
             std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, QObject *parent = nullptr);
    ~AppStore() override;

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
    void setAttention(Attention attention) { m_notifications.setAttention(std::move(attention)); }
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

private:
    void checkMainThread() const;
    [[nodiscard]] static Handlers handlersOf(AppStore *store);

    // Alerts and answers.
    void keepDraft(const QString &alertID, const QString &text);
    void removeReplyDraft(const QString &alertID);
    /// Gives the answer. Where that may not be done nothing has happened, and the reason is returned.
    std::optional<AnswerRefusal> submitAnswer(const QString &alertID, const QString &text);
    void sendAnswer(const Alert &before, const QString &answer);
    /// The service refused, or can't be reached; the answer given to `before` has been undone.
    void answerRefused(const Alert &before, const QString &message);
    /// Tells it where the person looks.
    void tellRefusal(const Alert &alert, const AnswerRefusal &refusal);
    /// Takes in the test alert that the service made, and announces it.
    void receiveTestAlert(Alert alert);

    // Other changes of the person's.
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
    /// Tells the person, once, when what they have just set will be forgotten.
    void tellIfForgotten();
    /// Tells why something that the person wanted was not done; ends the session where it has ended at the service.
    void tellFailure(const APIError &error);

    // The demo.
    void chooseFirstWorkspace();
    void restoreDemo();
    void signInToDemo(AuthProvider provider);

    // The session.
    void openStoredSession();
    void restoreSession();
    void restoreLocalSettings();
    /// Takes up a session that the keyring gave out late, unless there is one by now or is going to be.
    void restoreLateSession();
    void completeSignIn(const QUrl &baseURL, const Session &session);
    /// Ends the session because the service refused it, in these words, and tells the person wherever they are. What
    /// they typed is kept until somebody signs in.
    void endRefusedSession(const QString &message);
    /// An answer given in the session of `client` failed; where that session has ended with it or before, it is told.
    void noteUnsentAnswer(const APIClientPtr &client, const Alert &alert, const QString &text, const APIError &error);
    void tellRefusedSession();
    void leaveSession(const std::optional<QString> &message);
    void resetParts();

    // What the live loop brings.
    void takeDashboard(FetchedDashboard fetched);
    void takePlan(const QString &plan);
    void takeAccount(const Account &account);
    /// The same person's account has changed.
    void renewAccount(const Account &account);
    /// The service has registered this computer, or with none does not know it any more.
    void takeDevice(const std::optional<Device> &device);

    /// Announces again, once, what a killed run left on the screen and still waits.
    void announceLeftAsks();
    [[nodiscard]] std::optional<QString> workspaceName(const QString &workspaceID) const;
    /// Whose notification mark it is while this account is signed in.
    [[nodiscard]] QString markOwner(const std::optional<Account> &account) const;

    QString selectedAlertIDText() const { return selectedAlertID().value_or(QString()); }
    QString serverWord() const { return rawValue(server()); }
    void setServerWord(const QString &word);
    QString sectionWord() const { return rawValue(section()); }
    void setSectionWord(const QString &word);

    const SeedData m_seed;
    const std::shared_ptr<Preferences> m_defaults;
    /// None in the demo.
    std::unique_ptr<StoredSession> m_session;
    RefusedSession m_refusedSession;
    /// Members that exist here alone until the service answers their invitation.
    QSet<QString> m_provisionalMembers;
    bool m_toldOfForgetting = false;
};

} // namespace pingwell
