#include "screen_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString panel = u"PopoverView"_s;
const QString root = u"RootView"_s;
const QString firstButton = u"popover.ask.a1.action.0"_s;
const QJsonArray twoChoices{u"Hold"_s, u"Ship"_s};

QJsonObject choiceJSON(const QString &id, double secondsAgo, const QJsonArray &actions = twoChoices)
{
    return askJSON(id, secondsAgo, {{u"actions"_s, actions}});
}

/// A live store whose service says what the test wants.
struct Live : StoreFixture
{
    explicit Live(const QJsonArray &alerts)
    {
        for (const QByteArray id : {"a1", "a2"})
            transport->plan("POST", "/workspaces/w1/alerts/" + id + "/answer", ScriptedAnswer::noAnswer().heldBack());
        startWith(dashboardOf(alerts));
    }

    // The answers given fail with the store.
    ~Live() { transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer()); }

    [[nodiscard]] QString answer(const QString &id) const { return alert(id).answer.value_or(QString()); }
    void post(const QJsonArray &alerts) { refreshWith(dashboardOf(alerts)); }
};

/// A finger comes down, or goes up again.
void touch(Screen &screen, const QPoint &place, bool isDown)
{
    static const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    if (isDown)
        QTest::touchEvent(&screen.view(), device.get()).press(1, place);
    else
        QTest::touchEvent(&screen.view(), device.get()).release(1, place);
}

} // namespace

/// What the person meant to press is pressed, and nothing else.
class PressTest : public QObject
{
    Q_OBJECT

private slots:
    void whatComesUnderTheRestingPointerWaits()
    {
        const std::tuple<const char *, bool, int, bool> rows[] = {{"at once", false, 0, false},
                                                                  {"just too early", false, 499, false},
                                                                  {"seen", false, 500, true},
                                                                  {"away and back", true, 0, true}};
        for (const bool ownAnswer : {true, false}) {
            for (const auto &[name, goesAway, milliseconds, counts] : rows) {
                const InRow row((ownAnswer ? "next card, " : "another answer, ") + QByteArray(name));
                Live live({choiceJSON(u"a1"_s, 10), choiceJSON(u"a2"_s, 20)});
                Screen screen(panel, *live.store);
                screen.point(firstButton);
                const QString answered = ownAnswer ? u"a2"_s : u"a1"_s;
                if (ownAnswer)
                    screen.pressAtPointer();
                else
                    live.post({choiceJSON(u"a1"_s, 10, {u"Drop"_s, u"Ship"_s}), choiceJSON(u"a2"_s, 20)});
                if (goesAway) {
                    screen.pointAway();
                    screen.point(ownAnswer ? u"popover.ask.a2.action.0"_s : firstButton);
                }
                screen.pass(std::chrono::milliseconds(milliseconds));
                screen.pressAtPointer();
                QCOMPARE(live.answer(answered), !counts ? QString() : ownAnswer ? u"Hold"_s : u"Drop"_s);
                QCOMPARE(live.answer(u"a1"_s).isEmpty(), !ownAnswer && !counts);
            }
        }
    }

    /// By pointer, finger or key, and a key that comes at once; where the answer is still the same, the press counts.
    void aPressThatHasBegunEndsWithWhatItWasFor()
    {
        for (const QByteArray by : {"pointer", "finger", "Space", "Space at once"}) {
            for (const QString &answer : {u"Drop"_s, u"Hold"_s}) {
                const InRow row(by + ", then " + answer.toUtf8());
                Live live({choiceJSON(u"a1"_s, 10)});
                Screen screen(panel, *live.store);
                const auto go = [&](bool isDown) {
                    const QPoint place = screen.place(firstButton, {10, 10}).toPoint();
                    if (by.startsWith("Space"))
                        QTest::sendKeyEvent(isDown ? QTest::Press : QTest::Release, &screen.view(), Qt::Key_Space, u' ',
                                            {});
                    else if (by == "pointer")
                        QTest::mouseEvent(isDown ? QTest::MousePress : QTest::MouseRelease, &screen.view(),
                                          Qt::LeftButton, {}, place);
                    else
                        touch(screen, place, isDown);
                };
                screen.find(firstButton)->forceActiveFocus(Qt::TabFocusReason);
                screen.pass(500ms);
                if (by != "Space at once")
                    go(true);
                live.post({choiceJSON(u"a1"_s, 10, {answer, u"Ship"_s}), choiceJSON(u"a2"_s, 5)});
                if (by == "Space at once")
                    go(true);
                go(false);
                QCOMPARE(live.answer(u"a1"_s), answer == u"Hold" ? answer : QString());
            }
        }
    }

    /// On what was there when the window opened it counts at once.
    void aFingerWaitsWhereverItComesDown()
    {
        for (const bool wasOpen : {true, false}) {
            Live live({choiceJSON(u"a1"_s, 10)});
            Screen screen(panel, *live.store);
            const auto tap = [&] {
                const QPoint place = screen.place(u"popover.ask.a2.action.0"_s, {10, 10}).toPoint();
                touch(screen, place, true);
                touch(screen, place, false);
            };
            screen.view().setVisible(wasOpen);
            live.post({choiceJSON(u"a2"_s, 5), choiceJSON(u"a1"_s, 10)});
            screen.view().show();
            tap();
            QCOMPARE(live.answer(u"a2"_s), wasOpen ? QString() : u"Hold"_s);
            screen.pass(500ms);
            if (wasOpen)
                tap();
            QCOMPARE(live.answer(u"a2"_s), u"Hold"_s);
        }
    }

    void panelStandsStillUnderThePointer()
    {
        Live live({choiceJSON(u"a1"_s, 10), choiceJSON(u"a2"_s, 20), alertJSON(u"n1"_s, 30)});
        Screen screen(panel, *live.store);
        const QString card = u"popover.ask.a2"_s, row = u"popover.alert.n1"_s;
        const QString button = card + u".action.0"_s;
        screen.point(button);
        const QPointF before = screen.place(button);
        const QJsonArray changed{choiceJSON(u"a3"_s, 5), choiceJSON(u"a2"_s, 20), alertJSON(u"n1"_s, 30)};
        live.post(changed);
        // The new ask joins below, the one that is gone keeps its place.
        QCOMPARE(screen.place(button), before);
        QVERIFY(screen.place(u"popover.ask.a3"_s).y() > before.y());
        QVERIFY(screen.shows(u"popover.ask.a1.gone"_s) && !screen.shows(u"popover.ask.a1.action.0"_s));
        screen.pointAway();
        QVERIFY(!screen.shows(u"popover.ask.a1"_s));
        screen.point(row);
        const QPointF rowBefore = screen.place(row);
        live.post({choiceJSON(u"a4"_s, 2), alertJSON(u"n2"_s, 3), alertJSON(u"n1"_s, 30)});
        QCOMPARE(screen.name(u"popover.needsReply.header"_s), u"Needs reply · 1"_s);
        QCOMPARE(screen.place(row), rowBefore);
        screen.pointAway();
        QVERIFY(screen.shows(u"popover.ask.a4"_s) && !screen.shows(u"popover.ask.a3"_s));
        QVERIFY(screen.place(u"popover.alert.n2"_s).y() < screen.place(row).y());
    }

    void inboxStandsStillUnderThePointer()
    {
        Live live({alertJSON(u"n1"_s, 10), alertJSON(u"n2"_s, 20), alertJSON(u"n3"_s, 30)});
        Screen screen(root, *live.store);
        const QString row = u"alert.row.n2"_s;
        screen.rightClick(row, {100, 20});
        const QPointF before = screen.place(row);
        live.post({alertJSON(u"n0"_s, 5), alertJSON(u"n1"_s, 10), alertJSON(u"n2"_s, 20)});
        QCOMPARE(screen.place(row), before);
        QVERIFY(screen.place(u"alert.row.n0"_s).y() > before.y());
        QVERIFY(screen.shows(row + u".toggleRead"_s));
        // The menu of an alert that is gone goes.
        live.post({alertJSON(u"n0"_s, 5), alertJSON(u"n1"_s, 10)});
        QVERIFY(!screen.shows(row + u".toggleRead"_s));
        QCOMPARE(screen.place(row), before);
        QVERIFY(screen.name(row).endsWith(u"Deleted"_s) && !screen.canUse(row));
        screen.pointAway();
        QVERIFY(!screen.shows(row));
        QVERIFY(screen.place(u"alert.row.n0"_s).y() < screen.place(u"alert.row.n1"_s).y());
    }

    void keysTypedForALostFieldDoNothing()
    {
        QJsonObject waiting{{u"answerType"_s, u"text"_s}, {u"read"_s, true}}, answered = waiting;
        waiting[u"expiresAt"_s] = millisecondsFromInstant(testStart + Seconds(60));
        answered[u"answer"_s] = u"us"_s;
        const std::tuple<const char *, bool, QString> rows[] = {{"the deadline passes", false, u"eu"_s},
                                                                {"answered elsewhere", true, u"eu"_s},
                                                                {"answered before a word", true, {}}};
        for (const auto &[name, isAnswered, draft] : rows) {
            const InRow row(name);
            Live live({askJSON(u"a1"_s, 10, waiting), choiceJSON(u"a2"_s, 20)});
            live.store->startClock();
            Screen screen(root, *live.store);
            screen.click(u"alert.row.a1"_s);
            screen.press(Qt::Key_R);
            screen.type(draft);
            if (isAnswered)
                live.post({askJSON(u"a1"_s, 10, answered), choiceJSON(u"a2"_s, 20)});
            else
                live.clock->advance(61s);
            QVERIFY(!screen.shows(u"detail.reply"_s));
            QCOMPARE(screen.text(u"detail.unsent"_s), draft);
            screen.press({Qt::Key_U, Qt::Key_2, Qt::Key_Return, Qt::Key_Delete});
            QVERIFY(!screen.shows(u"inbox.delete.confirm"_s));
            QVERIFY(live.alert(u"a1"_s).read);
            QCOMPARE(live.store->selectedAlertID(), u"a1"_s);
            QCOMPARE(screen.focused(), draft.isEmpty() ? u"detail"_s : u"detail.unsent"_s);
            screen.press(Qt::Key_Escape);
            QCOMPARE(screen.focused(), u"alert.row.a1"_s);
            screen.press(Qt::Key_U);
            QVERIFY(!live.alert(u"a1"_s).read);
        }
    }

    /// In the open ask, and half a second after it or the window came there, unless the person pressed in the window.
    void digitsAnswerWhatIsInUse()
    {
        const std::tuple<QByteArray, int, bool> rows[] = {
            {"list", 1000, false}, {"ask", 1000, true},     {"raised", 499, false}, {"raised", 500, true},
            {"pressed", 0, true},  {"changed", 499, false}, {"changed", 500, true}};
        for (const auto &[before, milliseconds, counts] : rows) {
            const InRow row(before + ' ' + QByteArray::number(milliseconds));
            Live live({choiceJSON(u"a1"_s, 10), choiceJSON(u"a2"_s, 20)});
            Screen screen(root, *live.store);
            screen.click(before == "changed" ? u"alert.row.a1"_s : u"alert.row.a2"_s);
            if (before != "list")
                screen.press(Qt::Key_Return);
            QQuickView other;
            if (before == "raised" || before == "pressed") {
                other.show();
                other.requestActivate();
                QVERIFY(QTest::qWaitForWindowActive(&other));
                screen.view().requestActivate();
                QVERIFY(QTest::qWaitForWindowActive(&screen.view()));
            }
            if (before == "pressed")
                QTest::mouseClick(&screen.view(), Qt::LeftButton, {}, {700, 600});
            if (before == "changed") {
                screen.store().selectAlert(u"a2"_s);
                screen.find(u"detail"_s)->forceActiveFocus();
            }
            screen.pass(std::chrono::milliseconds(milliseconds));
            QTest::keyClick(&screen.view(), Qt::Key_1);
            QCOMPARE(live.answer(u"a2"_s), counts ? u"Hold"_s : QString());
            QCOMPARE(live.answer(u"a1"_s), QString());
        }
    }

    void messageCoversNoButton()
    {
        QJsonArray asks;
        for (int index = 0; index < 9; ++index)
            asks.append(choiceJSON(u"a%1"_s.arg(index), 10 + index));
        Live live(asks);
        Screen screen(panel, *live.store);
        const QString button = u"popover.ask.a8.action.0"_s;
        screen.find(button)->forceActiveFocus(Qt::TabFocusReason);
        live.store->showToast(u"Saved."_s, false);
        screen.find(u"popover.ask.a0.action.0"_s)->forceActiveFocus(Qt::TabFocusReason);
        screen.find(button)->forceActiveFocus(Qt::TabFocusReason);
        QVERIFY(screen.place(button, {0, 24}).y() <= screen.place(u"toast"_s).y());
    }

    void messageLetsNoPressThrough()
    {
        Live live({alertJSON(u"n1"_s, 10)});
        Screen screen(root, *live.store);
        live.store->showToast(u"A message that lies over a button."_s, false);
        screen.click(u"inbox.markAllRead"_s);
        QVERIFY(!live.alert(u"n1"_s).read);
    }
};

QTEST_MAIN(PressTest)
#include "press_test.moc"
