#include "screen_fixture.h"
#include "store_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;

namespace {

const QString panel = QStringLiteral("PopoverView");

QJsonObject textAskJSON(const QString &id, double secondsAgo)
{
    return askJSON(id, secondsAgo, {{QStringLiteral("answerType"), QStringLiteral("text")}});
}

DashboardJSON dashboardOf(const QJsonArray &alerts)
{
    DashboardJSON dashboard;
    dashboard.alerts = alerts;
    return dashboard;
}

int caretOf(const QQuickItem *field)
{
    return field->property("cursorPosition").toInt();
}

} // namespace

class PopoverTest : public QObject
{
    Q_OBJECT

private slots:
    void choiceIsAnsweredWithItsButton()
    {
        Screen screen(panel, makeSeed({makeChoice(QStringLiteral("a1"), QStringLiteral("Ship it?"), 5)}));
        QCOMPARE(screen.name(QStringLiteral("popover.needsReply.header")), QStringLiteral("Needs reply · 1"));
        QCOMPARE(screen.name(QStringLiteral("popover.ask.a1.title")), QStringLiteral("Ship it?"));
        QCOMPARE(screen.name(QStringLiteral("popover.ask.a1.countdown")), QStringLiteral("Expires in —"));
        QCOMPARE(screen.name(QStringLiteral("popover.ask.a1.action.0")), QStringLiteral("Hold"));
        QCOMPARE(screen.find(QStringLiteral("popover.ask.a1.action.1"))->height(), 24.0);

        screen.click(QStringLiteral("popover.ask.a1.action.1"));
        QCOMPARE(screen.store().alertWithID(QStringLiteral("a1"))->answer, QStringLiteral("Approve"));
        QVERIFY(!screen.shows(QStringLiteral("popover.ask.a1")));
        QVERIFY(screen.shows(QStringLiteral("popover.needsReply.empty")));
        QVERIFY(screen.name(QStringLiteral("popover.alert.a1")).contains(QStringLiteral("Deploy bot · ✓ Approve")));
    }

    void textIsAnsweredWithReturn()
    {
        Screen screen(panel, makeSeed({makeTextAsk(QStringLiteral("a1"), QStringLiteral("Which region?"), 5)}));
        const QString send = QStringLiteral("popover.ask.a1.send");
        QVERIFY(!screen.find(send)->isEnabled());
        screen.click(QStringLiteral("popover.ask.a1.reply"));
        screen.type(QStringLiteral("  "));
        QVERIFY(!screen.find(send)->isEnabled());
        screen.type(QStringLiteral("eu"));
        screen.press(Qt::Key_Return, Qt::ShiftModifier);
        screen.type(QStringLiteral("west"));
        QCOMPARE(screen.store().replyDraft(QStringLiteral("a1")), QStringLiteral("  eu\nwest"));
        QVERIFY(screen.find(send)->isEnabled());

        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().alertWithID(QStringLiteral("a1"))->answer, QStringLiteral("eu\nwest"));
        QVERIFY(!screen.shows(QStringLiteral("popover.ask.a1")));
    }

    void fieldShowsTheDraftAsTheStoreKeepsIt()
    {
        Screen screen(panel, makeSeed({makeTextAsk(QStringLiteral("a1"), QStringLiteral("Why?"), 5)}));
        const QString id = QStringLiteral("a1");
        screen.click(QStringLiteral("popover.ask.a1.reply"));
        screen.store().setReplyDraft(QString(maximumAnswerLength, u'x'), id);
        QQuickItem *const field = screen.find(QStringLiteral("popover.ask.a1.reply"));
        QCOMPARE(field->property("text").toString().size(), maximumAnswerLength);
        screen.press(Qt::Key_End, Qt::ControlModifier);
        screen.type(QStringLiteral("y"));
        QCOMPARE(field->property("text").toString(), QString(maximumAnswerLength, u'x'));
        QCOMPARE(caretOf(field), int(maximumAnswerLength));
        screen.press(Qt::Key_Home, Qt::ControlModifier);
        screen.type(QStringLiteral("z"));
        QCOMPARE(field->property("text").toString(), u'z' + QString(maximumAnswerLength - 1, u'x'));
        QCOMPARE(caretOf(field), 1);
        screen.store().setReplyDraft({}, id);
        QCOMPARE(field->property("text").toString(), QString());
    }

    void typingSurvivesRefreshesAndTicks()
    {
        StoreFixture live;
        live.startWith(dashboardOf({textAskJSON(QStringLiteral("a1"), 60)}));
        live.store->startClock();
        Screen screen(panel, *live.store);
        const QString reply = QStringLiteral("popover.ask.a1.reply");
        screen.click(reply);
        screen.type(QStringLiteral("eu west"));
        screen.press(Qt::Key_Left, Qt::ShiftModifier);
        QQuickItem *const field = screen.find(reply);

        live.refreshWith(dashboardOf({askJSON(QStringLiteral("a3"), 5), alertJSON(QStringLiteral("n1"), 8),
                                      textAskJSON(QStringLiteral("a1"), 60), textAskJSON(QStringLiteral("a2"), 90)}));
        live.clock->advance(std::chrono::seconds(90));
        screen.settle();
        QCOMPARE(screen.name(QStringLiteral("popover.needsReply.header")), QStringLiteral("Needs reply · 3"));
        QVERIFY(screen.find(QStringLiteral("popover.ask.a3"))->y() <
                screen.find(QStringLiteral("popover.ask.a1"))->y());
        QCOMPARE(screen.find(reply), field);
        QCOMPARE(screen.focused(), reply);
        QCOMPARE(caretOf(field), 6);
        QCOMPARE(field->property("selectedText").toString(), QStringLiteral("t"));
        QCOMPARE(field->property("text").toString(), QStringLiteral("eu west"));
    }

    void askBeingAnsweredStaysWhereItIs()
    {
        QJsonArray asks;
        for (int index = 0; index < 12; ++index)
            asks.append(textAskJSON(QStringLiteral("a%1").arg(index), 60 + index));
        StoreFixture live;
        live.startWith(dashboardOf(asks));
        Screen screen(panel, *live.store);
        QQuickItem *const field = screen.find(QStringLiteral("popover.ask.a2.reply"));
        screen.click(QStringLiteral("popover.ask.a2.reply"));
        const qreal before = field->mapToScene({}).y();
        asks.prepend(textAskJSON(QStringLiteral("new"), 1));
        live.refreshWith(dashboardOf(asks));
        screen.settle();
        QVERIFY(screen.shows(QStringLiteral("popover.ask.new")));
        QCOMPARE(field->mapToScene({}).y(), before);
    }

    void deadlineMovesAnAskToToday()
    {
        StoreFixture live;
        live.startWith(
            dashboardOf({askJSON(QStringLiteral("a1"), 60,
                                 {{QStringLiteral("expiresAt"), millisecondsFromInstant(testStart + Seconds(301))}})}));
        live.store->startClock();
        Screen screen(panel, *live.store);
        const QString countdown = QStringLiteral("popover.ask.a1.countdown");
        QCOMPARE(screen.name(countdown), QStringLiteral("Expires in 5m"));
        QCOMPARE(screen.find(countdown)->property("symbolName").toString(), QStringLiteral("clock"));
        live.clock->advance(std::chrono::seconds(2));
        QCOMPARE(screen.name(countdown), QStringLiteral("Expires in 4m"));
        QCOMPARE(screen.find(countdown)->property("symbolName").toString(), QStringLiteral("timer"));
        live.clock->advance(std::chrono::seconds(299));
        screen.settle();
        QVERIFY(!screen.shows(QStringLiteral("popover.ask.a1")));
        QVERIFY(screen.shows(QStringLiteral("popover.alert.a1.timedOut")));
    }

    void statusLine_data()
    {
        QTest::addColumn<bool>("signedIn");
        QTest::addColumn<bool>("problem");
        QTest::addColumn<QString>("status");
        QTest::newRow("connected") << true << false << QStringLiteral("Connected · Pingwell Cloud");
        QTest::newRow("offline") << true << true << QStringLiteral("Offline · Pingwell Cloud");
        QTest::newRow("signed out") << false << false << QStringLiteral("Signed out");
    }

    void statusLine()
    {
        QFETCH(bool, signedIn);
        QFETCH(bool, problem);
        QFETCH(QString, status);
        StoreFixture live;
        if (!signedIn)
            live.tokens->clear();
        live.start();
        if (signedIn)
            live.refreshWith(dashboardOf({}));
        if (problem) {
            live.transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
            live.store->refresh();
            live.settle();
        }
        Screen screen(panel, *live.store);
        QCOMPARE(screen.name(QStringLiteral("popover.status")), status);
        QCOMPARE(screen.shows(QStringLiteral("popover.signedOut")), !signedIn);
        QCOMPARE(screen.shows(QStringLiteral("popover.workspace")), signedIn);
        QCOMPARE(screen.shows(QStringLiteral("popover.today.header")), signedIn);
    }

    void viewerOnlyReads()
    {
        Screen screen(
            panel, makeSeed({makeChoice(QStringLiteral("a1"), QStringLiteral("Ship it?"), 5)}, WorkspaceRole::viewer));
        QCOMPARE(screen.name(QStringLiteral("popover.ask.a1.viewerNote")),
                 QStringLiteral("Viewers can't reply to asks"));
        QCOMPARE(screen.count(QStringLiteral("popover\\.ask\\.a1\\.(action|reply|send).*")), 0);
    }

    void todayShowsSixAlertsAndFocusFewer()
    {
        QList<Alert> alerts;
        for (int index = 0; index < 10; ++index)
            alerts << makeAlert(QStringLiteral("n%1").arg(index), QStringLiteral("Notice"), index + 1);
        alerts[3].priority = Priority::critical;
        Screen screen(panel, makeSeed(alerts));
        const QString rows = QStringLiteral("popover\\.alert\\.[^.]+");
        QCOMPARE(screen.count(rows), 6);
        QCOMPARE(screen.name(QStringLiteral("popover.alert.n0")),
                 QStringLiteral("1m, Notice, Deploy bot · All checks passed."));
        screen.click(QStringLiteral("popover.focus"));
        QVERIFY(screen.store().focusMode());
        QCOMPARE(screen.name(QStringLiteral("popover.today.header")), QStringLiteral("Today · Focus"));
        QCOMPARE(screen.count(rows), 1);
        screen.store().setFocusMode(false);
        screen.store().selectWorkspace(QStringLiteral("w2"));
        screen.settle();
        QVERIFY(screen.shows(QStringLiteral("popover.today.empty")));
        QVERIFY(screen.shows(QStringLiteral("popover.needsReply.empty")));
    }

    void leadsToTheMainWindowAndOut()
    {
        Screen screen(panel, makeSeed({makeAlert(QStringLiteral("n1"), QStringLiteral("Notice"), 1)}));
        QSignalSpy openings(screen.view().rootObject(), SIGNAL(openMainRequested()));
        QSignalSpy quits(screen.view().rootObject(), SIGNAL(quitRequested()));
        screen.click(QStringLiteral("popover.alert.n1"));
        QCOMPARE(screen.store().selectedAlertID(), QStringLiteral("n1"));
        screen.click(QStringLiteral("popover.open"));
        screen.press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(openings.count(), 3);
        screen.click(QStringLiteral("popover.quit"));
        screen.press(Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quits.count(), 2);
    }

    void keyboardReachesEverythingAndSeesIt()
    {
        QList<Alert> asks;
        for (int index = 0; index < 12; ++index)
            asks << makeChoice(QStringLiteral("a%1").arg(index), QStringLiteral("Ship it?"), index + 1);
        Screen screen(panel, makeSeed(asks));
        const QString last = QStringLiteral("popover.ask.a11.action.0");
        for (int steps = 0; steps < 40 && screen.focused() != last; ++steps)
            screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), last);
        const QQuickItem *const button = screen.find(last);
        const qreal footer = screen.find(QStringLiteral("popover.open"))->mapToScene({}).y();
        QVERIFY(button->mapToScene({}).y() + button->height() < footer);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().alertWithID(QStringLiteral("a11"))->answer, QStringLiteral("Hold"));
    }

    void workspaceMenuOffersEveryWorkspace()
    {
        Screen screen(panel, makeSeed({}));
        QSignalSpy openings(screen.view().rootObject(), SIGNAL(openMainRequested()));
        screen.click(QStringLiteral("popover.workspace"));
        QCOMPARE(screen.name(QStringLiteral("popover.workspace.option.w1")), QStringLiteral("Platform"));
        screen.click(QStringLiteral("popover.workspace.option.w2"));
        QCOMPARE(screen.store().activeWorkspaceID(), QStringLiteral("w2"));
        QCOMPARE(screen.name(QStringLiteral("popover.workspace")), QStringLiteral("Personal"));
        screen.click(QStringLiteral("popover.workspace"));
        screen.click(QStringLiteral("popover.workspace.create"));
        QVERIFY(screen.store().isCreatingWorkspace());
        QCOMPARE(openings.count(), 1);
    }

    void textFromAgentsIsNeverMarkup()
    {
        const QString markup = QStringLiteral("<b>a</b><img src=\"http://127.0.0.1:9/x.png\"> & b");
        Alert ask = makeChoice(QStringLiteral("a1"), markup, 5);
        ask.app = markup;
        ask.body = markup;
        ask.actions = {markup, markup + u'2'};
        Alert text = makeTextAsk(QStringLiteral("a2"), markup, 6);
        text.placeholder = markup;
        SeedData seed = makeSeed({ask, text, makeAlert(QStringLiteral("n1"), markup, 7)});
        seed.workspaces[0].name = markup;
        Screen screen(panel, seed);
        screen.click(QStringLiteral("popover.workspace"));
        screen.store().showToast(markup, true);
        screen.settle();
        for (const QString &identifier :
             {QStringLiteral("popover.ask.a1.title"), QStringLiteral("popover.ask.a1.action.0"),
              QStringLiteral("popover.workspace"), QStringLiteral("popover.workspace.option.w1"),
              QStringLiteral("toast")})
            QCOMPARE(screen.name(identifier), markup);
        for (const QQuickItem *item : screen.view().rootObject()->findChildren<QQuickItem *>()) {
            const QVariant format = item->property("textFormat");
            QVERIFY2(!format.isValid() || format.toInt() == Qt::PlainText, item->metaObject()->className());
        }
    }
};

QTEST_MAIN(PopoverTest)
#include "popover_test.moc"
