#include "screen_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString panel = u"PopoverView"_s;

QJsonObject textAskJSON(const QString &id, double secondsAgo)
{
    return askJSON(id, secondsAgo, {{u"answerType"_s, u"text"_s}});
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
        Screen screen(panel, makeSeed({makeChoice(u"a1"_s, u"Ship it?"_s, 5)}));
        QCOMPARE(screen.name(u"popover.needsReply.header"_s), u"Needs reply · 1"_s);
        QCOMPARE(screen.name(u"popover.ask.a1.title"_s), u"Ship it?"_s);
        QCOMPARE(screen.name(u"popover.ask.a1.countdown"_s), u"Expires in —"_s);
        QCOMPARE(screen.name(u"popover.ask.a1.action.0"_s), u"Hold"_s);
        QVERIFY(!screen.isFilled(u"popover.ask.a1.action.0"_s) && screen.isFilled(u"popover.ask.a1.action.1"_s));
        screen.click(u"popover.ask.a1.action.1"_s);
        QVERIFY(!screen.shows(u"popover.ask.a1"_s) && screen.shows(u"popover.needsReply.empty"_s));
        QCOMPARE(screen.name(u"popover.alert.a1"_s), u"5m, Ship it?, Deploy bot · ✓ Approve"_s);
    }

    void textIsAnsweredWithReturn()
    {
        Screen screen(panel, makeSeed({makeTextAsk(u"a1"_s, u"Which region?"_s, 5)}));
        const QString send = u"popover.ask.a1.send"_s;
        screen.click(u"popover.ask.a1.reply"_s);
        screen.type(u"  "_s);
        QVERIFY(!screen.canUse(send));
        screen.type(u"eu"_s);
        screen.press(Qt::SHIFT | Qt::Key_Return);
        screen.type(u"west"_s);
        QCOMPARE(screen.store().replyDraft(u"a1"_s), u"  eu\nwest"_s);
        QVERIFY(screen.canUse(send));
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().alertWithID(u"a1"_s)->answer, u"eu\nwest"_s);
        QVERIFY(!screen.shows(u"popover.ask.a1"_s));
    }

    void fieldShowsTheDraftAsTheStoreKeepsIt()
    {
        Screen screen(panel, makeSeed({makeTextAsk(u"a1"_s, u"Why?"_s, 5)}));
        const QString reply = u"popover.ask.a1.reply"_s;
        const QString longest(maximumAnswerLength, u'x');
        screen.click(reply);
        screen.store().setReplyDraft(longest, u"a1"_s);
        screen.press(Qt::CTRL | Qt::Key_End);
        screen.type(u"y"_s);
        QCOMPARE(screen.text(reply), longest);
        QCOMPARE(caretOf(screen.find(reply)), int(maximumAnswerLength));
        screen.press(Qt::CTRL | Qt::Key_Home);
        screen.type(u"z"_s);
        QCOMPARE(screen.text(reply), u'z' + longest.chopped(1));
        QCOMPARE(caretOf(screen.find(reply)), 1);
        screen.store().setReplyDraft({}, u"a1"_s);
        QCOMPARE(screen.text(reply), QString());
    }

    void typingSurvivesRefreshesAndTicks()
    {
        StoreFixture live;
        live.startWith(dashboardOf({textAskJSON(u"a1"_s, 60)}));
        live.store->startClock();
        Screen screen(panel, *live.store);
        const QString reply = u"popover.ask.a1.reply"_s;
        screen.click(reply);
        screen.type(u"eu west"_s);
        screen.press(Qt::SHIFT | Qt::Key_Left);
        const QQuickItem *const field = screen.find(reply);
        const QPointF place = screen.place(reply);

        live.refreshWith(dashboardOf(
            {askJSON(u"a3"_s, 5), alertJSON(u"n1"_s, 8), textAskJSON(u"a1"_s, 60), textAskJSON(u"a2"_s, 90)}));
        live.clock->advance(std::chrono::seconds(90));
        QCOMPARE(screen.name(u"popover.needsReply.header"_s), u"Needs reply · 3"_s);
        QCOMPARE(screen.find(reply), field);
        QCOMPARE(screen.place(reply), place);
        QCOMPARE(screen.focused(), reply);
        QCOMPARE(caretOf(field), 6);
        QCOMPARE(field->property("selectedText").toString(), u"t"_s);
        QCOMPARE(screen.text(reply), u"eu west"_s);
    }

    void deadlineMovesAnAskToToday()
    {
        StoreFixture live;
        const double deadline = millisecondsFromInstant(testStart + Seconds(301));
        live.startWith(dashboardOf({askJSON(u"a1"_s, 60, {{u"expiresAt"_s, deadline}})}));
        live.store->startClock();
        Screen screen(panel, *live.store);
        const QString countdown = u"popover.ask.a1.countdown"_s;
        const auto symbol = [&] { return screen.find(countdown)->property("symbolName").toString(); };
        QCOMPARE(screen.name(countdown), u"Expires in 5m"_s);
        QCOMPARE(symbol(), u"clock"_s);
        live.clock->advance(std::chrono::seconds(2));
        QCOMPARE(screen.name(countdown), u"Expires in 4m"_s);
        QCOMPARE(symbol(), u"timer"_s);
        live.clock->advance(std::chrono::seconds(299));
        QVERIFY(!screen.shows(u"popover.ask.a1"_s) && screen.shows(u"popover.alert.a1.timedOut"_s));
    }

    void statusLine()
    {
        StoreFixture live;
        live.startWith({});
        Screen screen(panel, *live.store);
        const auto status = [&screen] { return screen.drawn(u"popover"_s).mid(1, 2).join(u": "); };
        QCOMPARE(status(), u"green: Connected · Pingwell Cloud"_s);
        QVERIFY(screen.shows(u"popover.workspace"_s) && !screen.shows(u"popover.signedOut"_s));
        live.refreshWith(ScriptedAnswer::noAnswer());
        QCOMPARE(status(), u"orange: Offline · Pingwell Cloud"_s);
        live.store->endSession({});
        QCOMPARE(status(), u"grey: Signed out"_s);
        QVERIFY(screen.shows(u"popover.signedOut"_s));
        QVERIFY(!screen.shows(u"popover.workspace"_s) && !screen.shows(u"popover.today.header"_s));
    }

    void viewerOnlyReads()
    {
        const Screen screen(panel, makeSeed({makeChoice(u"a1"_s, u"Ship it?"_s, 5)}, WorkspaceRole::viewer));
        QVERIFY(screen.shows(u"popover.ask.a1.viewerNote"_s) && !screen.shows(u"popover.ask.a1.action.0"_s));
    }

    void todayShowsSixAlertsAndFocusFewer()
    {
        QList<Alert> alerts;
        for (int index = 0; index < 10; ++index)
            alerts << makeAlert(u"n%1"_s.arg(index), u"Notice"_s, index + 1);
        alerts[1].read = true;
        alerts[3].priority = Priority::critical;
        Screen screen(panel, makeSeed(alerts));
        const QString rows = u"popover\\.alert\\.[^.]+"_s;
        QCOMPARE(screen.count(rows), 6);
        QCOMPARE(screen.name(u"popover.alert.n0"_s), u"1m, Notice, Deploy bot · All checks passed."_s);
        QVERIFY(screen.drawn(u"popover.alert.n0"_s).contains(u"*Notice"));
        QVERIFY(screen.drawn(u"popover.alert.n1"_s).contains(u"Notice"));
        screen.click(u"popover.focus"_s);
        QCOMPARE(screen.name(u"popover.today.header"_s), u"Today · Focus"_s);
        QCOMPARE(screen.find(u"popover.today.header"_s)->property("topPadding").toDouble(), 8.0);
        QCOMPARE(screen.count(rows), 1);
        screen.store().selectWorkspace(u"w2"_s);
        QVERIFY(screen.shows(u"popover.today.empty"_s) && screen.shows(u"popover.needsReply.empty"_s));
    }

    void leadsToTheMainWindowAndOut()
    {
        Screen screen(panel, makeSeed({makeAlert(u"n1"_s, u"Notice"_s, 1)}));
        const QSignalSpy openings(screen.view().rootObject(), SIGNAL(openMainRequested()));
        const QSignalSpy quits(screen.view().rootObject(), SIGNAL(quitRequested()));
        screen.click(u"popover.alert.n1"_s);
        QCOMPARE(screen.store().selectedAlertID(), u"n1"_s);
        screen.click(u"popover.open"_s);
        screen.press(Qt::CTRL | Qt::Key_O);
        QCOMPARE(openings.count(), 3);
        screen.click({u"popover.workspace"_s, u"popover.workspace.option.w2"_s});
        QCOMPARE(screen.name(u"popover.workspace"_s), u"Personal"_s);
        screen.click({u"popover.workspace"_s, u"popover.workspace.create"_s});
        QVERIFY(screen.store().isCreatingWorkspace());
        QCOMPARE(openings.count(), 4);
        screen.click(u"popover.quit"_s);
        screen.press(Qt::CTRL | Qt::Key_Q);
        QCOMPARE(quits.count(), 2);
    }

    void keyboardReachesEverythingAndSeesIt()
    {
        QList<Alert> asks;
        for (int index = 0; index < 40; ++index)
            asks << makeChoice(u"a%1"_s.arg(index), u"Ship it?"_s, index + 1);
        Screen screen(panel, makeSeed(asks));
        const QString last = u"popover.ask.a39.action.0"_s;
        for (int steps = 0; steps < 100 && screen.focused() != last; ++steps)
            screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), last);
        QVERIFY(screen.place(last, {0, 24}).y() < screen.place(u"popover.open"_s).y());
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().alertWithID(u"a39"_s)->answer, u"Hold"_s);
    }

    void keypadsEnterPresses()
    {
        for (const auto &[control, shown] : {std::pair(u"popover.workspace"_s, u"popover.workspace.create"_s),
                                             {u"popover.focus"_s, u"popover.today.empty"_s},
                                             {u"popover.ask.a1.action.0"_s, u"popover.needsReply.empty"_s}}) {
            Screen screen(panel, makeSeed({makeChoice(u"a1"_s, u"Ship it?"_s, 5), makeAlert(u"n1"_s, u"Notice"_s, 1)}));
            QVERIFY(!screen.shows(shown));
            screen.find(control)->forceActiveFocus(Qt::TabFocusReason);
            screen.press(Qt::KeypadModifier | Qt::Key_Enter);
            QVERIFY(screen.shows(shown));
        }
    }

    /// In the panel and in the open alert.
    void longWordsAreReadBeforeTheyAreAnswered()
    {
        const QString words = u"Delete what nobody has read for ninety days in "_s.repeated(9);
        Alert ask = makeChoice(u"a1"_s, words + u"production?"_s, 5);
        ask.actions = {u"No"_s, words + u"staging"_s, words + u"production"_s};
        for (const auto &[component, prefix, height] :
             {std::tuple(panel, u"popover.ask.a1"_s, 24.0), {u"RootView"_s, u"detail"_s, 30.0}}) {
            Screen screen(component, makeSeed({ask}));
            screen.view().resize(screen.view().width(), 1000);
            screen.store().selectAlert(u"a1"_s);
            QCOMPARE(screen.name(prefix + u".title"_s), ask.title);
            QCOMPARE(screen.find(prefix + u".action.0"_s)->height(), height);
            for (const QString &number : {u"1"_s, u"2"_s}) {
                const QQuickItem *const button = screen.find(prefix + u".action."_s + number);
                const QQuickItem *const label = screen.textIn(button->objectName(), ask.actions.at(number.toInt()));
                QVERIFY(label && !label->property("truncated").toBool());
                QVERIFY(label->mapToItem(button, {}).y() >= 4 && label->height() + 8 <= button->height());
            }
            screen.click(prefix + u".action.2"_s);
            QCOMPARE(screen.store().alertWithID(u"a1"_s)->answer, ask.actions.at(2));
        }
    }

    void textFromAgentsIsNeverMarkup()
    {
        const QString markup = u"<b>a</b><img src=\"http://127.0.0.1:9/x.png\"> & b"_s;
        Alert ask = makeChoice(u"a1"_s, markup, 5);
        ask.app = markup;
        ask.body = markup;
        ask.actions = {markup, markup + u'2'};
        Alert text = makeTextAsk(u"a2"_s, markup, 6);
        text.placeholder = markup;
        SeedData seed = makeSeed({ask, text, makeAlert(u"n1"_s, markup, 7)});
        seed.workspaces[0].name = markup;
        Screen screen(panel, seed);
        screen.click(u"popover.workspace"_s);
        screen.store().showToast(markup, true);
        for (const QString &identifier : {u"popover.ask.a1.title"_s, u"popover.ask.a1.action.0"_s,
                                          u"popover.workspace"_s, u"popover.workspace.option.w1"_s, u"toast"_s})
            QCOMPARE(screen.name(identifier), markup);
        for (const QQuickItem *item : screen.view().rootObject()->findChildren<QQuickItem *>()) {
            const QVariant format = item->property("textFormat");
            QVERIFY2(!format.isValid() || format.toInt() == Qt::PlainText, item->metaObject()->className());
        }
    }
};

QTEST_MAIN(PopoverTest)
#include "popover_test.moc"
