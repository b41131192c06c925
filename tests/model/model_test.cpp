#include "model/alert.h"
#include "model/workspace.h"

#include <QTest>

#include <algorithm>
#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const Instant start{Seconds(1'700'000'000)};

Alert ask()
{
    Alert alert;
    alert.kind = AlertKind::ask;
    alert.actions = {u"Approve"_s, u"Deny"_s};
    alert.at = start;
    return alert;
}

QString told(const std::optional<ReplyState> &state)
{
    if (!state)
        return u"none"_s;
    if (const auto *waiting = std::get_if<Waiting>(&*state))
        return u"waiting "_s + QString::number(waiting->remaining);
    if (const auto *answered = std::get_if<Answered>(&*state))
        return u"answered "_s + answered->text;
    return u"timed out"_s;
}

template<typename Enumeration>
QString wordsOf()
{
    QStringList words;
    for (const auto &entry : rawValues<Enumeration>)
        words << entry.word;
    return words.join(u' ');
}

} // namespace

class ModelTest : public QObject
{
    Q_OBJECT

private slots:
    void replyState_data()
    {
        QTest::addColumn<Alert>("alert");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QString &expected, const std::function<void(Alert &)> &change) {
            Alert alert = ask();
            change(alert);
            QTest::newRow(name) << alert << expected;
        };
        row("a notice, whatever its fields", u"none"_s, [](Alert &alert) { alert.kind = AlertKind::notify; });
        row("no deadline", u"waiting inf"_s, [](Alert &) {});
        row("one second left", u"waiting 1"_s, [](Alert &alert) { alert.expiresAt = start + Seconds(1); });
        row("deadline reached", u"timed out"_s, [](Alert &alert) { alert.expiresAt = start; });
        row("timed out by the service before its deadline", u"timed out"_s, [](Alert &alert) {
            alert.expiresAt = start + Seconds(60);
            alert.timedOutAt = start;
        });
        row("an answer wins over every time-out", u"answered Deny"_s, [](Alert &alert) {
            alert.answer = u"Deny"_s;
            alert.timedOutAt = start;
            alert.expiresAt = start;
        });
    }

    void replyState()
    {
        QFETCH(Alert, alert);
        QFETCH(QString, expected);
        QCOMPARE(told(alert.replyState(start)), expected);
        QCOMPARE(alert.isWaiting(start), expected.startsWith(u"waiting"));
    }

    void validatedAnswer()
    {
        const QString full(1000, u'x');
        const std::tuple<AnswerType, QString, std::optional<QString>> rows[] = {
            {AnswerType::choice, u"Deny"_s, u"Deny"_s},
            {AnswerType::choice, u"deny"_s, {}},
            {AnswerType::choice, u" Deny"_s, {}},
            {AnswerType::text, u" \n yes\t "_s, u"yes"_s},
            {AnswerType::text, u" \n\t"_s, {}},
            {AnswerType::text, u' ' + full, full},
            // An emoji takes two of the limit.
            {AnswerType::text, full.chopped(1) + u"😀"_s, {}}};
        for (const auto &[type, proposed, expected] : rows) {
            Alert alert = ask();
            alert.answerType = type;
            QCOMPARE(alert.validatedAnswer(proposed), expected);
        }
    }

    void responseWindow()
    {
        const auto minutes = [](double seconds) {
            Alert alert = ask();
            alert.expiresAt = alert.at + Seconds(seconds);
            return *alert.responseWindowMinutes();
        };
        QCOMPARE(minutes(90), 2);
        QCOMPARE(minutes(29), 0);
        QCOMPARE(minutes(-90), -2);
        // The widest window that can travel.
        QCOMPARE(minutes(2 * maximumInstantMilliseconds / 1000), 288'000'000'000);
        QVERIFY(!ask().responseWindowMinutes());
    }

    void escalationNeedsATeam()
    {
        Workspace workspace;
        workspace.timeoutAction = TimeoutAction::escalate;
        QCOMPARE(workspace.effectiveTimeoutAction(), TimeoutAction::expire);
        workspace.kind = WorkspaceKind::team;
        QCOMPARE(workspace.effectiveTimeoutAction(), TimeoutAction::escalate);
        QVERIFY(isAllowed(TimeoutAction::default_, WorkspaceKind::personal));
    }

    /// On the wire and in the preferences.
    void rawWordsStay()
    {
        QCOMPARE(wordsOf<Priority>(), u"silent normal high critical"_s);
        QCOMPARE(wordsOf<AlertKind>(), u"notify ask"_s);
        QCOMPARE(wordsOf<AnswerType>(), u"choice text"_s);
        QCOMPARE(wordsOf<TimeoutAction>(), u"expire default escalate"_s);
        QCOMPARE(wordsOf<WorkspaceRole>(), u"owner admin member viewer"_s);
        QCOMPARE(wordsOf<WorkspaceKind>(), u"personal team"_s);
        QCOMPARE(wordsOf<MemberStatus>(), u"active invited"_s);
        QCOMPARE(wordsOf<DevicePlatform>(), u"android macos windows ios linux web"_s);
        QCOMPARE(wordsOf<AuthProvider>(), u"google github"_s);
        QCOMPARE(wordsOf<ServerKind>(), u"cloud selfHosted"_s);
        QCOMPARE(wordsOf<SidebarSection>(), u"inbox topics team settings"_s);
    }

    void prioritiesAreOrdered()
    {
        const auto cases = allCases<Priority>();
        QVERIFY(std::is_sorted(cases.begin(), cases.end()));
        QVERIFY(cases.front() == Priority::silent && Priority::critical > Priority::high);
    }
};

QTEST_APPLESS_MAIN(ModelTest)
#include "model_test.moc"
