#include "notify/user_notifier.h"
#include "support/fake_notification_center.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// Writes down what arrives, a line each.
class RecordingResponses final : public AlertResponses
{
public:
    void answer(const QString &alertId, const QString &text) override
    {
        lines << u"answer %1: %2"_s.arg(alertId, text);
    }
    void open(const QString &alertId, bool focusReply, const QString &activationToken) override
    {
        lines << u"open %1%2 [%3]"_s.arg(alertId, focusReply ? u" to reply"_s : QString(), activationToken);
    }

    QStringList lines;
};

Alert makeAlert(AlertKind kind, AnswerType answerType = AnswerType::choice, const QStringList &actions = {},
                const std::optional<QString> &placeholder = std::nullopt)
{
    Alert alert;
    alert.id = u"a-1"_s;
    alert.workspaceId = u"w-1"_s;
    alert.app = u"Deployer"_s;
    alert.topic = u"releases"_s;
    alert.title = u"Ship it?"_s;
    alert.body = u"Version 2 is ready."_s;
    alert.kind = kind;
    alert.answerType = answerType;
    alert.actions = actions;
    alert.placeholder = placeholder;
    return alert;
}

/// A category on one line.
QString written(const NotificationCategory &category)
{
    QString line = category.identifier + u':';
    for (const NotificationAction &action : category.actions) {
        line += u' ' + action.identifier + u'=' + action.title;
        if (action.textInput)
            line += u'/' + action.textInput->buttonTitle + u'/' + action.textInput->placeholder;
    }
    return line;
}

} // namespace

class UserNotifierTest : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeNotificationCenter> m_center;
    std::shared_ptr<RecordingResponses> m_responses;
    std::unique_ptr<UserNotifier> m_notifier;

    const NotificationContent &deliver(const Alert &alert, bool sound = true, bool canAnswer = true)
    {
        m_notifier->deliver(alert, std::nullopt, sound, canAnswer);
        return m_center->added.constLast().content;
    }

private slots:
    void init()
    {
        m_center = std::make_shared<FakeNotificationCenter>();
        m_responses = std::make_shared<RecordingResponses>();
        m_notifier = std::make_unique<UserNotifier>(m_center);
        m_notifier->setResponses(m_responses);
    }

    void categories()
    {
        const QStringList two{u"Approve"_s, u"Deny"_s};
        const QList<std::pair<Alert, QString>> cases{
            {makeAlert(AlertKind::ask, AnswerType::choice, two), u"ask.Approve|Deny: answer.0=Approve answer.1=Deny"_s},
            {makeAlert(AlertKind::ask, AnswerType::text), u"reply.Type a reply…: reply=Reply/Send/Type a reply…"_s},
            // Text wins over choices.
            {makeAlert(AlertKind::ask, AnswerType::text, two, u"Why?"_s), u"reply.Why?: reply=Reply/Send/Why?"_s}};
        for (const auto &[alert, category] : cases)
            QCOMPARE(written(*deliver(alert).category), category);
        QVERIFY(!deliver(makeAlert(AlertKind::notify, AnswerType::choice, two)).category);
        QVERIFY2(!deliver(cases.first().first, true, false).category, "only to be read");
    }

    void loudness()
    {
        for (const Priority priority : {Priority::high, Priority::critical}) {
            const bool isCritical = priority == Priority::critical;
            for (const bool maySound : {true, false}) {
                Alert alert = makeAlert(AlertKind::notify);
                alert.priority = priority;
                const NotificationContent &content = deliver(alert, maySound);
                QCOMPARE(content.sound, maySound || isCritical);
                QCOMPARE(content.timeSensitive, isCritical);
            }
        }
    }

    void says()
    {
        const Alert alert = makeAlert(AlertKind::ask, AnswerType::choice, {u"Yes"_s, u"No"_s});
        m_notifier->deliver(alert, u"Team"_s, true, true);
        const NotificationRequest request = m_center->added.constFirst();
        QCOMPARE(request.identifier, u"a-1"_s);
        QCOMPARE(request.content.title, u"Ship it?"_s);
        QCOMPARE(request.content.subtitle, u"Deployer · #releases · Team"_s);
        QCOMPARE(request.content.body, u"Version 2 is ready."_s);
        QCOMPARE(request.content.payload, (NotificationPayload{u"a-1"_s, u"w-1"_s, {u"Yes"_s, u"No"_s}}));
    }

    void tellsRefusals()
    {
        const Alert ask = makeAlert(AlertKind::ask, AnswerType::text);
        m_notifier->deliverRefusal(ask, std::nullopt, {u"Offline."_s, true});
        const NotificationContent again = m_center->added.constLast().content;
        QCOMPARE(again.subtitle, u"Deployer · #releases"_s);
        QCOMPARE(again.body, u"Your answer didn't go through. Offline.\nVersion 2 is ready."_s);
        QVERIFY(!again.sound && again.category);
        m_notifier->deliverRefusal(ask, std::nullopt, {u"The ask is closed."_s, false});
        QVERIFY2(!m_center->added.constLast().content.category, "it offers an answer that can't be given");
    }

    void anEndedAskLeavesNoButtons()
    {
        Alert told = makeAlert(AlertKind::ask, AnswerType::choice, {u"Yes"_s});
        told.id = u"told"_s;
        m_notifier->deliverRefusal(told, std::nullopt, {u"Offline."_s, true});
        const QString said = m_center->added.constLast().content.body;
        for (const int added : {2, 2}) {
            m_notifier->endAsks({u"a-1"_s, u"told"_s});
            QCOMPARE(m_center->added.size(), added);
        }
        const NotificationRequest left = m_center->added.constLast();
        QVERIFY(left.onlyReplaces && left.content.body == said && !left.content.category);
        QCOMPARE(m_center->removed, (QStringList{u"a-1"_s, u"a-1"_s}));
        // Announced anew or dealt with, it tells of no refusal any more.
        m_notifier->deliver(told, std::nullopt, false, true);
        m_notifier->endAsks({u"told"_s});
        QCOMPARE(m_center->removed.constLast(), u"told"_s);
    }

    void responses_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<std::optional<QString>>("text");
        QTest::addColumn<QStringList>("lines");
        const auto row = [](const QString &action, const std::optional<QString> &text, const QStringList &lines) {
            QTest::addRow("%s %s", qPrintable(action), text ? "with text" : "") << action << text << lines;
        };
        row(u"answer.1"_s, {}, {u"answer a-1: No"_s});
        for (const char *index : {"2", "-1", "x", "", "0x1", "18446744073709551616"})
            row(u"answer."_s + QLatin1String(index), {}, {});
        row(u"reply"_s, u"Fine by me"_s, {u"answer a-1: Fine by me"_s});
        row(u"reply"_s, {}, {u"open a-1 to reply [token]"_s});
        row(u"default"_s, {}, {u"open a-1 [token]"_s});
        row(u"dismiss"_s, {}, {});
    }

    void responses()
    {
        QFETCH(QString, action);
        QFETCH(std::optional<QString>, text);
        NotificationResponse response{{u"a-1"_s, {}, {u"Yes"_s, u"No"_s}}, action, text, u"token"_s};
        m_center->responseHandler(response);
        QVERIFY2(m_responses->lines.isEmpty(), "an answer to a banner of no workspace");
        response.payload.workspaceId = u"w-1"_s;
        m_center->responseHandler(response);
        QTEST(m_responses->lines, "lines");
    }

    void itsOwnMessagesLeadToTheWindow()
    {
        m_notifier->deliverMessage(u"session"_s, u"Signed out"_s, u"Sign in again."_s);
        const NotificationRequest request = m_center->added.constLast();
        QCOMPARE(request.identifier, u"session"_s);
        QVERIFY(!request.content.category && !request.content.sound);
        m_center->responseHandler({request.content.payload, u"default"_s, {}, u"token"_s});
        QCOMPARE(m_responses->lines, QStringList{u"open  [token]"_s});
    }

    void outlivesNobody()
    {
        const std::weak_ptr<RecordingResponses> watched = m_responses;
        m_responses.reset();
        QVERIFY2(watched.expired(), "the notifier keeps the store alive");
        m_center->responseHandler({{u"a-1"_s, u"w-1"_s, {}}, u"default"_s, {}, {}});
        m_notifier->removeAll();
        QCOMPARE(m_center->removedAll, 1);
        m_notifier.reset();
        QVERIFY2(!m_center->responseHandler, "the center would call a notifier that is gone");
    }
};

QTEST_GUILESS_MAIN(UserNotifierTest)
#include "user_notifier_test.moc"
