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

QStringList written(const QList<NotificationAction> &actions)
{
    QStringList texts;
    for (const NotificationAction &action : actions) {
        texts << action.identifier + u'=' + action.title;
        if (action.textInput)
            texts.last() += u'/' + action.textInput->buttonTitle + u'/' + action.textInput->placeholder;
    }
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
        QTest::addColumn<Alert>("alert");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QStringList>("actions");
        const auto row = [](const char *name, const Alert &alert, const QString &category, const QStringList &actions) {
            QTest::newRow(name) << alert << category << actions;
        };
        const QStringList two{u"Approve"_s, u"Deny"_s};
        row("choices", makeAlert(AlertKind::ask, AnswerType::choice, two), u"ask.Approve|Deny"_s,
            {u"answer.0=Approve"_s, u"answer.1=Deny"_s});
        row("text, nothing suggested", makeAlert(AlertKind::ask, AnswerType::text), u"reply.Type a reply…"_s,
            {u"reply=Reply/Send/Type a reply…"_s});
        row("text wins over choices", makeAlert(AlertKind::ask, AnswerType::text, two, u"Why?"_s), u"reply.Why?"_s,
            {u"reply=Reply/Send/Why?"_s});
        row("a notice with choices", makeAlert(AlertKind::notify, AnswerType::choice, two), QString(), {});
    }

    void categories()
    {
        QFETCH(Alert, alert);
        QFETCH(QString, category);
        m_notifier->deliver(alert, std::nullopt, true);
        m_notifier->deliver(alert, std::nullopt, true);
        QCOMPARE(m_center->added.constFirst().content.categoryIdentifier.value_or(QString()), category);
        QCOMPARE(m_center->registered.size(), category.isEmpty() ? 0 : 1);
        if (category.isEmpty())
            return;
        QCOMPARE(m_center->registered.constFirst().constFirst().identifier, category);
        QTEST(written(m_center->registered.constFirst().constFirst().actions), "actions");
        // The desktop replaces the set, so it has to be whole.
        m_notifier->deliver(makeAlert(AlertKind::ask, AnswerType::choice, {u"New"_s}), std::nullopt, true);
        QCOMPARE(m_center->registered.constLast().size(), 2);
    }

    void loudness()
    {
        for (const Priority priority : {Priority::normal, Priority::high, Priority::critical}) {
            const bool isCritical = priority == Priority::critical;
            for (const bool maySound : {true, false}) {
                Alert alert = makeAlert(AlertKind::notify);
                alert.priority = priority;
                m_notifier->deliver(alert, std::nullopt, maySound);
                QCOMPARE(m_center->added.constLast().content.sound, maySound || isCritical);
                QCOMPARE(m_center->added.constLast().content.timeSensitive, isCritical);
            }
        }
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
        QCOMPARE(
            request.content.payload,
            (NotificationPayload{.alertId = alert.id, .workspaceId = alert.workspaceId, .actions = alert.actions}));

        m_notifier->deliverRefusal(makeAlert(AlertKind::ask, AnswerType::text), std::nullopt, u"The ask is closed."_s);
        const NotificationContent refusal = m_center->added.constLast().content;
        QCOMPARE(refusal.subtitle, u"Deployer · #releases"_s);
        QCOMPARE(refusal.body, u"Your answer didn't go through. The ask is closed.\nVersion 2 is ready."_s);
        QVERIFY(!refusal.sound);
        // It can be answered again, also when it was never delivered before.
        QVERIFY(refusal.categoryIdentifier && m_center->registered.size() == 2);
    }

    void responses_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("last choice") << u"answer.1"_s << QString() << QStringList{u"answer a-1: No"_s};
        for (const char *index : {"2", "-1", "x", "", "0x1", "18446744073709551616"})
            QTest::addRow("index '%s'", index)
                << QString(u"answer."_s + QLatin1String(index)) << QString() << QStringList();
        QTest::newRow("typed") << u"reply"_s << u"Fine by me"_s << QStringList{u"answer a-1: Fine by me"_s};
        QTest::newRow("no field to type in") << u"reply"_s << QString() << QStringList{u"open a-1 to reply [token]"_s};
        QTest::newRow("clicked") << u"default"_s << QString() << QStringList{u"open a-1 [token]"_s};
        QTest::newRow("something else") << u"dismiss"_s << QString() << QStringList();
    }

    void responses()
    {
        QFETCH(QString, action);
        QFETCH(QString, text);
        NotificationResponse response{
            .payload = {.alertId = u"a-1"_s, .workspaceId = QString(), .actions = {u"Yes"_s, u"No"_s}},
            .actionIdentifier = action,
            .text = text.isEmpty() ? std::nullopt : std::optional(text),
            .activationToken = u"token"_s,
        };
        m_center->responseHandler(response);
        QVERIFY2(m_responses->lines.isEmpty(), "an answer to a banner of no workspace");
        response.payload.workspaceId = u"w-1"_s;
        m_center->responseHandler(response);
        QTEST(m_responses->lines, "lines");
        const std::weak_ptr<RecordingResponses> watched = m_responses;
        m_responses.reset();
        QVERIFY2(watched.expired(), "the notifier keeps the store alive");
        m_center->responseHandler(response);
        m_notifier.reset();
        QVERIFY2(!m_center->responseHandler, "the center would call a notifier that is gone");
    }
};

QTEST_GUILESS_MAIN(UserNotifierTest)
#include "user_notifier_test.moc"
