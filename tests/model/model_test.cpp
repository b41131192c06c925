#include "model/alert.h"
#include "model/inbox_filter.h"
#include "model/workspace.h"

#include <QTest>

#include <algorithm>

using namespace pingwell;

namespace {

const Instant start{Seconds(1'700'000'000)};

Alert ask()
{
    Alert alert;
    alert.id = QStringLiteral("a1");
    alert.kind = AlertKind::ask;
    alert.actions = {QStringLiteral("Approve"), QStringLiteral("Deny")};
    alert.at = start;
    return alert;
}

Alert textAsk()
{
    Alert alert = ask();
    alert.actions.clear();
    alert.answerType = AnswerType::text;
    return alert;
}

QString told(const std::optional<ReplyState> &state)
{
    if (!state)
        return QStringLiteral("none");
    if (const auto *waiting = std::get_if<Waiting>(&*state))
        return QStringLiteral("waiting ") + QString::number(waiting->remaining);
    if (const auto *answered = std::get_if<Answered>(&*state))
        return QStringLiteral("answered ") + answered->text;
    return QStringLiteral("timed out");
}

template<typename Change>
Alert changed(Alert alert, Change change)
{
    change(alert);
    return alert;
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

        QTest::newRow("a notice, whatever its fields") << changed(ask(), [](Alert &alert) {
            alert.kind = AlertKind::notify;
            alert.expiresAt = start;
        }) << "none";
        QTest::newRow("no deadline") << ask() << "waiting inf";
        QTest::newRow("one second left") << changed(ask(), [](Alert &alert) { alert.expiresAt = start + Seconds(1); })
                                         << "waiting 1";
        QTest::newRow("deadline reached")
            << changed(ask(), [](Alert &alert) { alert.expiresAt = start; }) << "timed out";
        QTest::newRow("timed out by the service before its deadline") << changed(ask(), [](Alert &alert) {
            alert.expiresAt = start + Seconds(60);
            alert.timedOutAt = start;
        }) << "timed out";
        QTest::newRow("an answer wins over every time-out") << changed(ask(), [](Alert &alert) {
            alert.answer = QStringLiteral("Deny");
            alert.timedOutAt = start;
            alert.expiresAt = start;
        }) << "answered Deny";
    }

    void replyState()
    {
        QFETCH(Alert, alert);
        QFETCH(QString, expected);
        QCOMPARE(told(alert.replyState(start)), expected);
        QCOMPARE(alert.isWaiting(start), expected.startsWith(u"waiting"));
    }

    void validatedAnswer_data()
    {
        QTest::addColumn<Alert>("alert");
        QTest::addColumn<QString>("proposed");
        QTest::addColumn<QString>("expected");
        const QString full(1000, u'x');

        QTest::newRow("one of the choices") << ask() << "Deny"
                                            << "Deny";
        QTest::newRow("another letter case") << ask() << "deny" << QString();
        QTest::newRow("a choice with blanks") << ask() << " Deny" << QString();
        QTest::newRow("text is trimmed") << textAsk() << " \n yes\t "
                                         << "yes";
        QTest::newRow("blank text") << textAsk() << " \n\t" << QString();
        QTest::newRow("text at the limit") << textAsk() << QString(u' ' + full) << full;
        QTest::newRow("text over the limit") << textAsk() << QString(full + u'x') << QString();
        QTest::newRow("emoji count twice")
            << textAsk() << QString(QString(999, u'x') + QStringLiteral("😀")) << QString();
    }

    void validatedAnswer()
    {
        QFETCH(Alert, alert);
        QFETCH(QString, proposed);
        QFETCH(QString, expected);
        const auto answer = alert.validatedAnswer(proposed);
        QCOMPARE(answer.has_value(), !expected.isNull());
        QCOMPARE(answer.value_or(QString()), expected);
    }

    void responseWindow_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<qint64>("minutes");
        QTest::newRow("half a minute rounds up") << 90.0 << qint64(2);
        QTest::newRow("less than half rounds down") << 29.0 << qint64(0);
        QTest::newRow("half a minute before rounds away from zero") << -90.0 << qint64(-2);
        QTest::newRow("the widest window on the wire")
            << 2 * maximumInstantMilliseconds / 1000 << qint64(288'000'000'000);
    }

    void responseWindow()
    {
        QFETCH(double, seconds);
        QFETCH(qint64, minutes);
        Alert alert = ask();
        alert.expiresAt = alert.at + Seconds(seconds);
        QCOMPARE(alert.responseWindowMinutes(), std::optional<std::int64_t>(minutes));
        alert.expiresAt.reset();
        QCOMPARE(alert.responseWindowMinutes(), std::optional<std::int64_t>());
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

    void wordsOfEnumerations()
    {
        QList<Priority> priorities{Priority::critical, Priority::silent, Priority::high, Priority::normal};
        std::sort(priorities.begin(), priorities.end());
        QStringList words;
        for (const Priority priority : priorities)
            words << rawValue(priority);
        QCOMPARE(words.join(u' '), QStringLiteral("silent normal high critical"));
        QCOMPARE(fromRawValue<TimeoutAction>(u"default"), std::optional(TimeoutAction::default_));
        QCOMPARE(fromRawValue<ServerKind>(u"SelfHosted"), std::optional<ServerKind>());
        QCOMPARE(QString(rawValue(DevicePlatform::linux_)), QStringLiteral("linux"));
    }

    void topicFiltersEqualByName()
    {
        const auto deploys = InboxFilter::topic(QStringLiteral("deploys"));
        QCOMPARE(deploys, InboxFilter::topic(QStringLiteral("deploys")));
        QCOMPARE(qHash(deploys), qHash(InboxFilter::topic(QStringLiteral("deploys"))));
        QVERIFY(deploys != InboxFilter::topic(QStringLiteral("billing")));
        QVERIFY(deploys != InboxFilter::asks());
    }
};

QTEST_APPLESS_MAIN(ModelTest)
#include "model_test.moc"
