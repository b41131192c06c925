#include "fake_notification_center.h"
#include "notify/user_notifier.h"

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

Alert makeAlert(AlertKind kind, AnswerType answerType = AnswerType::choice, const QStringList &actions = {})
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
    return alert;
}

QString written(const NotificationAction &action)
{
    const QString text = action.identifier + u'=' + action.title;
    return action.textInput ? text + u'/' + action.textInput->buttonTitle + u'/' + action.textInput->placeholder : text;
}

QStringList written(const QList<NotificationAction> &actions)
{
    QStringList texts;
    for (const NotificationAction &action : actions)
        texts << written(action);
    return texts;
}

} // namespace

class UserNotifierTest : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<FakeNotificationCenter> m_center;
    std::shared_ptr<RecordingResponses> m_responses;
    std::unique_ptr<UserNotifier> m_notifier;

private slots:
    void init()
    {
        m_center = std::make_shared<FakeNotificationCenter>();
        m_responses = std::make_shared<RecordingResponses>();
        m_notifier = std::make_unique<UserNotifier>(m_center);
        m_notifier->setResponses(m_responses);
    }

    void categories_data()
    {
        QTest::addColumn<AlertKind>("kind");
        QTest::addColumn<AnswerType>("answerType");
        QTest::addColumn<QStringList>("choices");
        QTest::addColumn<QString>("placeholder");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QStringList>("actions");
        const QStringList twoChoices{u"Approve"_s, u"Deny"_s};
        QTest::newRow("choices") << AlertKind::ask << AnswerType::choice << twoChoices << QString()
                                 << u"ask.Approve|Deny"_s << QStringList{u"answer.0=Approve"_s, u"answer.1=Deny"_s};
        QTest::newRow("text") << AlertKind::ask << AnswerType::text << QStringList() << u"Name?"_s << u"reply.Name?"_s
                              << QStringList{u"reply=Reply/Send/Name?"_s};
        QTest::newRow("text, nothing suggested")
            << AlertKind::ask << AnswerType::text << QStringList() << QString() << u"reply.Type a reply…"_s
            << QStringList{u"reply=Reply/Send/Type a reply…"_s};
        QTest::newRow("text wins over choices") << AlertKind::ask << AnswerType::text << twoChoices << u"Why?"_s
                                                << u"reply.Why?"_s << QStringList{u"reply=Reply/Send/Why?"_s};
        QTest::newRow("nothing to choose")
            << AlertKind::ask << AnswerType::choice << QStringList() << QString() << QString() << QStringList();
        QTest::newRow("a notice with choices")
            << AlertKind::notify << AnswerType::choice << twoChoices << QString() << QString() << QStringList();
        QTest::newRow("a notice with text")
            << AlertKind::notify << AnswerType::text << QStringList() << u"Why?"_s << QString() << QStringList();
    }

    void categories()
    {
        QFETCH(AlertKind, kind);
        QFETCH(AnswerType, answerType);
        QFETCH(QStringList, choices);
        QFETCH(QString, placeholder);
        QFETCH(QString, category);
        Alert alert = makeAlert(kind, answerType, choices);
        if (!placeholder.isEmpty())
            alert.placeholder = placeholder;
        m_notifier->deliver(alert, std::nullopt, true);
        const NotificationContent content = m_center->added.constFirst().content;
        QCOMPARE(content.categoryIdentifier.value_or(QString()), category);
        QCOMPARE(m_center->registered.size(), category.isEmpty() ? 0 : 1);
        if (!category.isEmpty()) {
            QCOMPARE(m_center->registered.constFirst().constFirst().identifier, category);
            QTEST(written(m_center->registered.constFirst().constFirst().actions), "actions");
        }
    }

    void registersEachCategoryOnce()
    {
        m_notifier->deliver(makeAlert(AlertKind::ask, AnswerType::choice, {u"Yes"_s, u"No"_s}), std::nullopt, true);
        m_notifier->deliver(makeAlert(AlertKind::ask, AnswerType::choice, {u"Yes"_s, u"No"_s}), std::nullopt, true);
        QCOMPARE(m_center->registered.size(), 1);
        m_notifier->deliver(makeAlert(AlertKind::ask, AnswerType::text), std::nullopt, true);
        QCOMPARE(m_center->registered.size(), 2);
        // The desktop replaces the set, so it has to be whole.
        QCOMPARE(m_center->registered.constLast().size(), 2);
    }

    void loudness_data()
    {
        QTest::addColumn<Priority>("priority");
        QTest::addColumn<bool>("maySound");
        QTest::addColumn<bool>("sounds");
        QTest::addColumn<bool>("timeSensitive");
        QTest::newRow("normal, sound on") << Priority::normal << true << true << false;
        QTest::newRow("normal, sound off") << Priority::normal << false << false << false;
        QTest::newRow("high, sound off") << Priority::high << false << false << false;
        QTest::newRow("critical, sound on") << Priority::critical << true << true << true;
        QTest::newRow("critical, sound off") << Priority::critical << false << true << true;
    }

    void loudness()
    {
        QFETCH(Priority, priority);
        QFETCH(bool, maySound);
        Alert alert = makeAlert(AlertKind::notify);
        alert.priority = priority;
        m_notifier->deliver(alert, std::nullopt, maySound);
        QTEST(m_center->added.constFirst().content.sound, "sounds");
        QTEST(m_center->added.constFirst().content.timeSensitive, "timeSensitive");
    }

    void says()
    {
        const Alert alert = makeAlert(AlertKind::ask, AnswerType::choice, {u"Yes"_s, u"No"_s});
        m_notifier->deliver(alert, u"Team"_s, true);
        const NotificationRequest request = m_center->added.constFirst();
        QCOMPARE(request.identifier, alert.id);
        QCOMPARE(request.content.title, alert.title);
        QCOMPARE(request.content.subtitle, u"Deployer · #releases · Team"_s);
        QCOMPARE(request.content.body, alert.body);
        QCOMPARE(request.content.threadIdentifier, alert.workspaceId);
        const NotificationPayload payload{
            .alertId = alert.id, .workspaceId = alert.workspaceId, .actions = alert.actions};
        QCOMPARE(request.content.payload, payload);

        m_notifier->deliver(alert, std::nullopt, true);
        QCOMPARE(m_center->added.constLast().content.subtitle, u"Deployer · #releases"_s);
    }

    void tellsOfARefusedAnswer()
    {
        m_notifier->deliverRefusal(makeAlert(AlertKind::ask, AnswerType::text), std::nullopt, u"The ask is closed."_s);
        const NotificationContent content = m_center->added.constFirst().content;
        QCOMPARE(content.body, u"Your answer didn't go through. The ask is closed.\nVersion 2 is ready."_s);
        QVERIFY(!content.sound);
        // It can be answered again, also when it was never delivered before.
        QCOMPARE(m_center->registered.constFirst().constFirst().identifier, *content.categoryIdentifier);
    }

    void responses_data()
    {
        QTest::addColumn<QString>("workspaceId");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("first choice") << u"w-1"_s << u"answer.0"_s << QString() << QStringList{u"answer a-1: Yes"_s};
        QTest::newRow("last choice") << u"w-1"_s << u"answer.1"_s << QString() << QStringList{u"answer a-1: No"_s};
        QTest::newRow("past the last") << u"w-1"_s << u"answer.2"_s << QString() << QStringList();
        QTest::newRow("before the first") << u"w-1"_s << u"answer.-1"_s << QString() << QStringList();
        QTest::newRow("no number") << u"w-1"_s << u"answer.x"_s << QString() << QStringList();
        QTest::newRow("no index") << u"w-1"_s << u"answer."_s << QString() << QStringList();
        QTest::newRow("hexadecimal") << u"w-1"_s << u"answer.0x1"_s << QString() << QStringList();
        QTest::newRow("beyond any integer")
            << u"w-1"_s << u"answer.18446744073709551616"_s << QString() << QStringList();
        QTest::newRow("typed") << u"w-1"_s << u"reply"_s << u"Fine by me"_s << QStringList{u"answer a-1: Fine by me"_s};
        QTest::newRow("no field to type in")
            << u"w-1"_s << u"reply"_s << QString() << QStringList{u"open a-1 to reply [token]"_s};
        QTest::newRow("clicked") << u"w-1"_s << u"default"_s << QString() << QStringList{u"open a-1 [token]"_s};
        QTest::newRow("something else") << u"w-1"_s << u"dismiss"_s << QString() << QStringList();
        QTest::newRow("no workspace") << QString() << u"answer.0"_s << QString() << QStringList();
        QTest::newRow("clicked, no workspace") << QString() << u"default"_s << QString() << QStringList();
    }

    void responses()
    {
        QFETCH(QString, workspaceId);
        QFETCH(QString, action);
        QFETCH(QString, text);
        m_center->responseHandler({
            .payload = {.alertId = u"a-1"_s, .workspaceId = workspaceId, .actions = {u"Yes"_s, u"No"_s}},
            .actionIdentifier = action,
            .text = text.isEmpty() ? std::nullopt : std::optional(text),
            .activationToken = u"token"_s,
        });
        QTEST(m_responses->lines, "lines");
    }

    void dropsResponsesThatNobodyTakes()
    {
        const NotificationResponse click{.payload = {.alertId = u"a-1"_s, .workspaceId = u"w-1"_s, .actions = {}},
                                         .actionIdentifier = defaultActionIdentifier,
                                         .text = std::nullopt,
                                         .activationToken = {}};
        const std::weak_ptr<RecordingResponses> watched = m_responses;
        m_responses.reset();
        QVERIFY2(watched.expired(), "the notifier keeps the store alive");
        m_center->responseHandler(click);
        m_notifier.reset();
        QVERIFY2(!m_center->responseHandler, "the center would call a notifier that is gone");
    }
};

QTEST_GUILESS_MAIN(UserNotifierTest)
#include "user_notifier_test.moc"
