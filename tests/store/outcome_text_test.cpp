#include "store/outcome_text.h"

#include "store_fixture.h"

#include <QTest>

using namespace pingwell;

class OutcomeTextTest : public QObject
{
    Q_OBJECT

private slots:
    void sentence_data()
    {
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("team");
        QTest::addColumn<bool>("takesText");
        QTest::addColumn<QString>("ending");
        const QString expired = QStringLiteral("the agent was told nobody answered.");
        const QString escalated = QStringLiteral("escalated to workspace admins.");
        const QString first = QStringLiteral("the agent continued with “Approve”.");
        const QString nothing = QStringLiteral("the agent continued with “”.");

        QTest::newRow("reported: default") << "default"
                                           << "expire" << true << false << first;
        QTest::newRow("reported: escalated") << "escalated"
                                             << "expire" << true << false << escalated;
        QTest::newRow("reported: expired") << "expired"
                                           << "default" << true << false << expired;
        QTest::newRow("reported: default, of a text ask") << "default"
                                                          << "expire" << true << true << nothing;
        QTest::newRow("unknown report: by the settings") << "cancelled"
                                                         << "escalate" << true << false << escalated;
        QTest::newRow("settings: default") << QString() << "default" << true << false << first;
        QTest::newRow("settings: default, of a text ask") << QString() << "default" << true << true << expired;
        QTest::newRow("settings: escalate, alone") << QString() << "escalate" << false << false << expired;
        QTest::newRow("workspace unknown") << QString() << QString() << false << false << expired;
    }

    void sentence()
    {
        QFETCH(QString, outcome);
        QFETCH(QString, action);
        QFETCH(bool, team);
        QFETCH(bool, takesText);
        QFETCH(QString, ending);
        Alert alert;
        alert.kind = AlertKind::ask;
        alert.answerType = takesText ? AnswerType::text : AnswerType::choice;
        if (!takesText)
            alert.actions = {QStringLiteral("Approve"), QStringLiteral("Reject")};
        alert.at = testStart;
        alert.expiresAt = testStart + Seconds(15 * 60);
        if (!outcome.isNull())
            alert.outcome = outcome;
        std::optional<Workspace> own;
        if (!action.isNull()) {
            own.emplace();
            own->kind = team ? WorkspaceKind::team : WorkspaceKind::personal;
            own->timeoutAction = *fromRawValue<TimeoutAction>(action);
        }
        QCOMPARE(outcomeText(alert, own, std::nullopt), QString(QStringLiteral("No reply in 15m — ") + ending));
    }

    void minutesWithoutADeadline()
    {
        Alert alert;
        alert.kind = AlertKind::ask;
        Workspace active;
        active.responseTimeoutMinutes = 90;
        QVERIFY(outcomeText(alert, std::nullopt, active).startsWith(QStringLiteral("No reply in 1h 30m — ")));
        QVERIFY(outcomeText(alert, std::nullopt, std::nullopt).startsWith(QStringLiteral("No reply in 0m — ")));
    }
};

QTEST_APPLESS_MAIN(OutcomeTextTest)
#include "outcome_text_test.moc"
