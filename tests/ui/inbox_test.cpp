#include "screen_fixture.h"
#include "ui/engine/accessibility_snapshot.h"
#include "ui/engine/announcer.h"

#include <QAccessible>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString root = u"RootView"_s;

/// Twelve notices, "n0" the newest, then an ask with two choices, "a1", and one answered by text, "a2".
SeedData aDay(WorkspaceRole role = WorkspaceRole::member)
{
    QList<Alert> alerts;
    for (int index = 0; index < 12; ++index)
        alerts << makeAlert(u"n%1"_s.arg(index), u"Notice %1"_s.arg(index), index + 1);
    alerts << makeChoice(u"a1"_s, u"Ship it?"_s, 100) << makeTextAsk(u"a2"_s, u"Which region?"_s, 200);
    SeedData seed = makeSeed(alerts, role);
    seed.topics << Topic{u"t0"_s, u"w1"_s, u"a quiet one"_s, Priority::normal, false, false, {}};
    return seed;
}

/// Where the top of a row is in the window.
double placeOf(const Screen &screen, const QString &alertID)
{
    return screen.place(u"alert.row."_s + alertID).y();
}

/// The notices from one to the other, but one.
DashboardJSON notices(int first, int last, const QString &without = {})
{
    QJsonArray alerts;
    for (int index = first; index <= last; ++index) {
        const QString id = u"n%1"_s.arg(index);
        if (id != without)
            alerts.append(alertJSON(id, 60 + index));
    }
    return dashboardOf(alerts);
}

} // namespace

class InboxTest : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatIsThere()
    {
        Screen screen(root, aDay());
        QCOMPARE(screen.name(u"inbox.count"_s), u"14 alerts · 14 unread"_s);
        QCOMPARE(screen.name(u"sidebar.inbox"_s), u"Inbox, 14"_s);
        QCOMPARE(screen.name(u"sidebar.account"_s), u"Robin Vale, robin@vale.example, Pingwell Cloud"_s);
        QCOMPARE(screen.value(u"sidebar.inbox"_s), u"selected"_s);
        QVERIFY(screen.shows(u"detail.empty"_s));
        const QString row = u"alert.row.n0"_s;
        QCOMPARE(screen.drawn(row).join(u" | "),
                 u"blue | Deploy bot | #deploys | 1m | *Notice 0 | All checks passed."_s);
        screen.click(u"inbox.markAllRead"_s);
        QCOMPARE(screen.drawn(row).join(u" | "), u"Deploy bot | #deploys | 1m | Notice 0 | All checks passed."_s);
        QCOMPARE(screen.name(u"sidebar.inbox"_s), u"Inbox"_s);
        QVERIFY(!screen.canUse(u"inbox.markAllRead"_s));
        screen.click(u"inbox.testAlert"_s);
        QCOMPARE(screen.name(u"inbox.count"_s), u"15 alerts · 1 unread"_s);
        screen.click(u"sidebar.topics"_s);
        QVERIFY(!screen.shows(u"inbox.list"_s));
        QCOMPARE(screen.value(u"sidebar.inbox"_s), u"not selected"_s);
    }

    void whatBecameOfAnAlert()
    {
        const Alert notice = makeAlert(u"a"_s, u"Done"_s, 20);
        const Alert waiting = makeChoice(u"a"_s, u"Ship it?"_s, 20);
        Alert answered = waiting;
        answered.answer = u"Hold"_s;
        Alert late = waiting;
        late.expiresAt = late.at + Seconds(300);
        const std::tuple<Alert, QString, QString> rows[] = {
            {notice, u"20m | %1 | All checks passed."_s, u""_s},
            {waiting, u"20m | %1 | Needs reply | Expires in —"_s,
             u"Deploy bot is waiting for your reply | Expires in — | Hold | Approve | "_s},
            {answered, u"20m | %1 | ✓ You replied “Hold”"_s, u"You replied “Hold” | "_s},
            {late, u"*TIMED OUT | 20m | %1 | No reply in 5m — the agent was told nobody answered."_s,
             u"*TIMED OUT | No reply in 5m — the agent was told nobody answered. | "_s}};
        for (const auto &[alert, row, detail] : rows) {
            Screen screen(root, makeSeed({alert}));
            screen.click(u"alert.row.a"_s);
            const QString title = u'*' + alert.title;
            QCOMPARE(screen.drawn(u"alert.row.a"_s).join(u" | "),
                     u"blue | Deploy bot | #deploys | "_s + row.arg(title));
            QCOMPARE(screen.drawn(u"detail"_s).join(u" | "),
                     u"*Normal | "_s + title + u" | All checks passed. | *Deploy bot | #deploys · 20m ago | "_s +
                         detail + u"Mark as read | Delete"_s);
            if (screen.shows(u"detail.action.0"_s))
                QVERIFY(!screen.isFilled(u"detail.action.0"_s) && screen.isFilled(u"detail.action.1"_s));
        }
    }

    void longBodyIsShownWhenAskedFor()
    {
        Alert alert = makeAlert(u"a"_s, u"Log"_s, 1);
        alert.body = u"All checks passed. "_s.repeated(500) + u"The end."_s;
        Screen screen(root, makeSeed({alert}));
        screen.view().resize(1200, 2400);
        screen.click(u"alert.row.a"_s);
        QVERIFY(!screen.text(u"detail.body"_s).endsWith(u"The end.") &&
                screen.drawn(u"detail"_s).contains(u"Show all"));
        screen.click(u"detail.showAll"_s);
        QVERIFY(screen.text(u"detail.body"_s).endsWith(u"The end."));
        QVERIFY(!screen.drawn(u"detail"_s).contains(u"Show all"));
    }

    void sidebarTellsOfInvitationsAndTheConnection()
    {
        StoreFixture live;
        live.startLoopWith(DashboardJSON(), R"([{"token":"t1","workspace":"Ops"},{"token":"t2"}])");
        Screen screen(root, *live.store);
        QCOMPARE(screen.drawn(u"sidebar.team"_s).join(u' '), u"Team *2"_s);
        QCOMPARE(screen.drawn(u"sidebar.topics"_s).join(u' '), u"Topics"_s);
        QCOMPARE(screen.drawn(u"sidebar.account"_s).last(3).join(u": "), u"orange: Pingwell Cloud: pingwell.test"_s);
        live.refreshWith(DashboardJSON());
        QCOMPARE(screen.drawn(u"sidebar.account"_s).last(3).join(u": "), u"green: Pingwell Cloud: pingwell.test"_s);
    }

    void chipsNarrowTheList()
    {
        Screen screen(root, aDay());
        QCOMPARE(screen.name(u"filter.all"_s), u"All, 14"_s);
        QCOMPARE(screen.name(u"filter.topic.a quiet one"_s), u"#a quiet one, 0"_s);
        screen.click(u"filter.asks"_s);
        QCOMPARE(screen.count(u"alert\\.row\\..*"_s), 2);
        QCOMPARE(screen.name(u"inbox.count"_s), u"2 alerts · 14 unread"_s);
        QCOMPARE(screen.value(u"filter.asks"_s), u"selected"_s);
        QVERIFY(QAccessible::queryAccessibleInterface(screen.find(u"filter.asks"_s))->state().selected);
        QCOMPARE(screen.value(u"filter.all"_s), u"not selected"_s);
        screen.store().selectAlert(u"a1"_s);
        screen.press({Qt::CTRL | Qt::Key_F, Qt::Key_End, Qt::Key_Return});
        QCOMPARE(screen.store().filter(), InboxFilter::topic(u"a quiet one"_s));
        QVERIFY(screen.shows(u"inbox.empty"_s) && screen.shows(u"detail.empty"_s));
    }

    void menuOfARow()
    {
        Screen screen(root, aDay());
        screen.press({Qt::Key_Down, Qt::SHIFT | Qt::Key_F10});
        QCOMPARE(screen.name(u"alert.row.n0.toggleRead"_s), u"Mark as read"_s);
        // A menu keeps the single keys to itself.
        screen.press(Qt::Key_Delete);
        QVERIFY(screen.store().alertWithID(u"n0"_s));
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.value(u"alert.row.n0"_s), u"read"_s);
        screen.rightClick(u"alert.row.n1"_s, {100, 20});
        screen.click(u"alert.row.n1.delete"_s);
        QVERIFY(!screen.store().alertWithID(u"n1"_s));
        QCOMPARE(screen.focused(), u"alert.row.n2"_s);
    }

    void whoMayDelete()
    {
        for (const WorkspaceRole role : {WorkspaceRole::member, WorkspaceRole::viewer}) {
            const bool mayDelete = role == WorkspaceRole::member;
            Screen screen(root, aDay(role));
            screen.store().selectAlert(u"a1"_s);
            QCOMPARE(screen.shows(u"detail.delete"_s), mayDelete);
            QCOMPARE(screen.shows(u"detail.viewerNote"_s), !mayDelete);
            QCOMPARE(screen.shows(u"detail.action.0"_s), mayDelete);
            QVERIFY(screen.shows(u"detail.countdown"_s));
            screen.press(Qt::Key_Menu);
            QCOMPARE(screen.shows(u"alert.row.a1.delete"_s), mayDelete);
            screen.press(Qt::Key_End);
            QCOMPARE(screen.focused(), mayDelete ? u"alert.row.a1.delete"_s : u"alert.row.a1.toggleRead"_s);
            screen.press({Qt::Key_Escape, Qt::Key_Return, Qt::Key_1});
            QCOMPARE(screen.store().alertWithID(u"a1"_s)->answer.has_value(), mayDelete);
        }
    }

    void keys()
    {
        using Keys = QList<QKeyCombination>;
        const std::tuple<const char *, Keys, QString, QString> rows[] = {
            {"down twice", {Qt::Key_Down, Qt::Key_Down}, u"alert.row.n1"_s, {}},
            {"home", {Qt::Key_End, Qt::Key_Home}, u"alert.row.n0"_s, {}},
            {"pages", {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_PageUp}, u"alert.row.n0"_s, {}},
            {"reply", {Qt::Key_End, Qt::Key_Return, Qt::Key_R}, u"detail.reply"_s, u"a2"_s},
            {"back from the field",
             {Qt::Key_End, Qt::Key_Return, Qt::Key_R, Qt::Key_Escape},
             u"alert.row.a2"_s,
             u"a2"_s},
            {"back again", {Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape}, u"alert.row.n0"_s, {}},
            {"delete goes on with the next",
             {Qt::Key_Down, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Tab, Qt::Key_Return},
             u"alert.row.n1"_s,
             {}},
            {"delete asks first", {Qt::Key_End, Qt::Key_Delete, Qt::Key_Return}, u"alert.row.a2"_s, {}},
            {"into the open alert", {Qt::Key_Down, Qt::Key_Return, Qt::Key_Return}, u"detail"_s, u"n0"_s},
            {"filters", {Qt::CTRL | Qt::Key_F, Qt::Key_Right}, u"filter.asks"_s, {}},
            {"down to the settings", {Qt::CTRL | Qt::Key_3, Qt::Key_Down}, u"sidebar.settings"_s, {}},
            {"into the topics", {Qt::CTRL | Qt::Key_2, Qt::Key_Tab, Qt::Key_Tab}, u"topics.new.name"_s, {}},
            {"and back", {Qt::CTRL | Qt::Key_3, Qt::CTRL | Qt::Key_1}, u"alert.row.n0"_s, {}},
            {"keys of the list", {Qt::Key_F1}, u"shortcuts.close"_s, {}},
            {"and away", {Qt::Key_Down, Qt::CTRL | Qt::Key_Slash, Qt::Key_Escape}, u"alert.row.n0"_s, {}}};
        for (const auto &[name, keys, focus, selected] : rows) {
            const InRow row(name);
            Screen screen(root, aDay());
            screen.press(keys);
            QCOMPARE(screen.focused(), focus);
            QCOMPARE(screen.store().selectedAlertID().value_or(QString()), selected);
        }
    }

    void openAskIsAnswered()
    {
        Screen screen(root, aDay());
        screen.click({u"filter.asks"_s, u"alert.row.a1"_s});
        QCOMPARE(screen.name(u"detail.title"_s), u"Ship it?"_s);
        screen.press(Qt::Key_3);
        QVERIFY(!screen.store().alertWithID(u"a1"_s)->answer);
        screen.click(u"detail.action.1"_s);
        QCOMPARE(screen.name(u"detail.answered"_s), u"You replied “Approve”"_s);
        QCOMPARE(screen.name(u"inbox.count"_s), u"2 alerts · 13 unread"_s);
        // The button is gone, the keyboard is not.
        QVERIFY(!screen.focused().isEmpty());
    }

    void detailTellsAll()
    {
        const QString lines = u"Because\n\nthe replica lags.\n"_s;
        Alert answered = makeTextAsk(u"a1"_s, lines.repeated(20) + u"Title."_s, 5);
        answered.answer = lines.repeated(30) + u"Answer."_s;
        Alert late = makeChoice(u"a2"_s, u"Scale?"_s, 20);
        late.expiresAt = dayEnd - Seconds(300);
        late.outcome = u"default"_s;
        late.actions = {u"Do nothing "_s.repeated(40) + u"at all"_s, u"\u2800"_s};
        Alert blank = late;
        blank.id = u"a3"_s;
        blank.answer = late.actions.last();
        Screen screen(root, makeSeed({answered, late, blank}));
        screen.store().selectAlert(u"a1"_s);
        QCOMPARE(screen.name(u"detail.title"_s), answered.title);
        QCOMPARE(screen.name(u"detail.answered"_s), u"You replied “%1”"_s.arg(*answered.answer));
        QVERIFY(screen.find(u"detail.answered"_s)->height() > 90 * 13);
        QVERIFY(screen.name(u"alert.row.a1"_s).size() < 800);
        screen.store().selectAlert(u"a2"_s);
        const QString sentence = screen.store().outcomeText(late);
        QCOMPARE(screen.name(u"detail.timedOut"_s), u"TIMED OUT, "_s + sentence);
        QVERIFY(!screen.shows(u"detail.showAll"_s));
        screen.store().selectAlert(u"a3"_s);
        QCOMPARE(screen.name(u"detail.answered"_s), u"You replied “Choice 2”"_s);
    }

    void rowKeepsItsMeasures()
    {
        const Screen screen(root, aDay());
        const QQuickItem *const row = screen.find(u"alert.row.n0"_s);
        const auto placeOf = [&](const QString &text) {
            return screen.textIn(row->objectName(), text)->mapToItem(row, {});
        };
        QCOMPARE(placeOf(u"Deploy bot"_s), QPointF(10 + 7 + 8, 4));
        QCOMPARE(row->height() - placeOf(u"All checks"_s).y(), 16.0 + 4);
        for (const QQuickItem *part : row->findChildren<QQuickItem *>()) {
            if (part->property("size") == 7)
                QCOMPARE(part->mapToItem(row, {}), QPointF(10, 4 + 6));
        }
    }

    void personWithoutAWorkspaceSeesWords()
    {
        Screen screen(root, SeedData());
        QCOMPARE(screen.name(u"sidebar.workspace"_s), u"No workspace yet, Create one here"_s);
        screen.click({u"sidebar.topics"_s, u"topics.new.name"_s});
        screen.type(u"deploys"_s);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.text(u"topics.new.name"_s), u"deploys"_s);
    }

    void veryManyChoicesAreCounted()
    {
        Alert ask = makeChoice(u"a1"_s, u"Which?"_s, 1);
        for (int index = 2; index < 100; ++index)
            ask.actions << u"Choice %1"_s.arg(index);
        ask.furtherChoices = 4900;
        Alert second = ask, third = ask;
        second.id = u"a2"_s;
        third.id = u"a3"_s;
        Screen screen(root, makeSeed({ask, second, third}));
        screen.click(u"alert.row.a1"_s);
        QCOMPARE(screen.count(u"detail\\.action\\..*"_s), 40);
        QCOMPARE(screen.name(u"detail.furtherChoices"_s),
                 u"Showing 40 of 5,000 choices. The others can't be chosen here."_s);
        Screen panel(u"PopoverView"_s, screen.store());
        QCOMPARE(panel.name(u"popover.ask.a1.furtherChoices"_s), screen.name(u"detail.furtherChoices"_s));
        // Two such asks fill the panel; the third is there for who scrolls to it.
        QCOMPARE(panel.count(u"popover\\.ask\\.a.\\.action\\..*"_s), 2 * 40);
        panel.find(u"popover.scroll"_s)->setProperty("contentY", 200);
        panel.settle();
        QCOMPARE(panel.count(u"popover\\.ask\\.a.\\.action\\..*"_s), 3 * 40);
        Screen viewer(u"PopoverView"_s, makeSeed({ask, second, third}, WorkspaceRole::viewer));
        QCOMPARE(viewer.count(u"popover\\.ask\\.a.\\.viewerNote"_s), 3);
        screen.store().answer(u"a1"_s, u"Choice 99"_s);
        QCOMPARE(screen.name(u"detail.answered"_s), u"You replied “Choice 99”"_s);
    }

    void singleKeysStayOutOfFieldsAndSheets()
    {
        Screen screen(root, aDay());
        screen.store().revealAlert(u"a2"_s);
        screen.press(Qt::Key_R);
        for (const QChar letter : u"u1r"_s)
            QTest::keyClick(&screen.view(), letter.toLatin1());
        screen.press({Qt::Key_Home, Qt::Key_Delete});
        QCOMPARE(screen.store().replyDraft(u"a2"_s), u"1r"_s);
        QVERIFY(!screen.store().alertWithID(u"a2"_s)->read);

        screen.store().selectAlert(u"a1"_s);
        for (const bool sheet : {true, false}) {
            screen.store().setIsCreatingWorkspace(sheet);
            screen.store().setSection(sheet ? SidebarSection::inbox : SidebarSection::team);
            screen.press({Qt::Key_1, Qt::Key_U, Qt::Key_Delete});
            const auto alert = screen.store().alertWithID(u"a1"_s);
            QVERIFY(alert && !alert->answer && !alert->read);
        }
    }

    void detailTogglesAndDeletes()
    {
        Screen screen(root, aDay());
        screen.click(u"alert.row.n2"_s);
        QVERIFY(!screen.shows(u"detail.countdown"_s));
        for (const QString &label : {u"Mark as read"_s, u"Mark as unread"_s, u"Mark as read"_s}) {
            QCOMPARE(screen.name(u"detail.toggleRead"_s), label);
            screen.click(u"detail.toggleRead"_s);
        }
        screen.click(u"detail.delete"_s);
        QVERIFY(screen.shows(u"detail.empty"_s) && !screen.shows(u"alert.row.n2"_s));
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.focused(), u"alert.row.n4"_s);
    }

    void whatIsLookedAtStays()
    {
        StoreFixture live;
        live.startWith(notices(10, 60));
        Screen screen(root, *live.store);
        QQuickItem *const list = screen.find(u"inbox.list"_s);
        const double top = placeOf(screen, u"n10"_s);

        // A list that stands at its top shows what comes.
        live.refreshWith(notices(8, 60));
        QCOMPARE(placeOf(screen, u"n8"_s), top);

        for (const double distance : {10.0, 700.0, 1e6}) {
            list->setProperty("contentY", 0);
            live.refreshWith(notices(8, 60));
            const double last = list->property("contentHeight").toDouble() - list->height();
            list->setProperty("contentY", list->property("originY").toDouble() + std::min(distance, last));
            QMap<double, QString> before;
            for (int index = 8; index <= 60; ++index) {
                const QString id = u"n%1"_s.arg(index);
                if (placeOf(screen, id) >= top)
                    before.insert(placeOf(screen, id), id);
            }
            QVERIFY(before.size() > 5);
            // Three arrive above; the first row in view goes.
            live.refreshWith(notices(5, 60, before.take(before.firstKey())));
            for (auto row = before.cbegin(); row != before.cend(); ++row)
                QCOMPARE(placeOf(screen, row.value()), row.key());
        }
    }

    void aNewOrderOfManyRowsKeepsThePlace()
    {
        QJsonArray turned;
        for (int index = 0; index < 300; ++index)
            turned.append(alertJSON(u"n%1"_s.arg(index), 1000 - index));
        StoreFixture live;
        live.startWith(notices(0, 299));
        Screen screen(root, *live.store);
        screen.find(u"inbox.list"_s)->setProperty("contentY", 700);
        screen.click(u"alert.row.n14"_s);
        QCOMPARE(screen.focused(), u"alert.row.n14"_s);
        screen.pointAway();
        const double before = placeOf(screen, u"n14"_s);

        live.refreshWith(dashboardOf(turned));
        QCOMPARE(live.store->filteredAlerts().first().id, u"n299"_s);
        QCOMPARE(screen.focused(), u"alert.row.n14"_s);
        QCOMPARE(live.store->selectedAlertID(), u"n14"_s);
        QCOMPARE(placeOf(screen, u"n14"_s), before);
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.focused(), u"alert.row.n13"_s);

        turned.append(5);
        live.refreshWith(dashboardOf(turned));
        QVERIFY(screen.name(u"connection.leftOut"_s).endsWith(u"Not shown: 1 of 301 alerts."_s));
    }

    void bannerPushesNothingAway()
    {
        StoreFixture live;
        live.startWith(notices(0, 50));
        Screen screen(root, *live.store);
        screen.find(u"inbox.list"_s)->setProperty("contentY", 400);
        const double before = placeOf(screen, u"n9"_s);
        live.refreshWith(ScriptedAnswer::noAnswer());
        QVERIFY(screen.shows(u"connection.problem"_s));
        QCOMPARE(placeOf(screen, u"n9"_s), before);
        live.refreshWith(notices(0, 50));
        QVERIFY(!screen.shows(u"connection.problem"_s));
        QCOMPARE(placeOf(screen, u"n9"_s), before);
    }

    void newsAreSpoken()
    {
        StoreFixture live;
        live.start();
        Screen screen(root, *live.store);
        auto *const announcer = screen.view().rootObject()->findChild<Announcer *>();
        QVERIFY(announcer);
        const QSignalSpy announcements(announcer, &Announcer::messageChanged);
        live.refreshWith(dashboardOf({askJSON(u"a1"_s, 60)}));
        QCOMPARE(announcements.count(), 0);
        const QJsonObject ask = askJSON(u"a2"_s, 5, {{u"title"_s, u"Ship it?"_s}, {u"app"_s, u"Bot"_s}});
        live.refreshWith(dashboardOf({ask, alertJSON(u"n1"_s, 5)}));
        live.refreshWith(dashboardOf({ask, alertJSON(u"n1"_s, 5), alertJSON(u"n2"_s, 2)}));
        QCOMPARE(announcements.count(), 1);
        auto *const spoken = QAccessible::queryAccessibleInterface(announcer);
        QCOMPARE(spoken->role(), QAccessible::Notification);
        QCOMPARE(spoken->text(QAccessible::Name), u"Bot is waiting for your reply: Ship it?"_s);
        live.store->showToast(u"Saved."_s, false);
        live.store->showToast(u"Saved."_s, false);
        QCOMPARE(announcements.count(), 3);
        QCOMPARE(spoken->text(QAccessible::Name), u"Saved."_s);
    }

    void everyIdentifiedElementSpeaks()
    {
        Screen screen(root, aDay());
        screen.store().selectAlert(u"a2"_s);
        const QJsonArray elements = QJsonDocument::fromJson(accessibilitySnapshot().toUtf8()).array();
        QVERIFY(elements.size() > 25);
        for (const QJsonValue &element : elements) {
            const bool speaks = element[u"role"_s] != u"NoRole"_s && !element[u"name"_s].toString().isEmpty();
            QVERIFY2(speaks, qPrintable(element[u"id"_s].toString()));
        }
    }

    void sidebarKeepsItsLimits()
    {
        Screen screen(root, aDay());
        screen.view().resize(1200, 700);
        QQuickItem *const handle = screen.find(u"sidebar.width"_s);
        handle->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Right);
        QCOMPARE(handle->x(), 230.0);
        for (int step = 0; step < 6; ++step)
            screen.press(Qt::Key_Left);
        QCOMPARE(handle->x(), 180.0);
        const QPoint grip(180, 400);
        QTest::mousePress(&screen.view(), Qt::LeftButton, {}, grip);
        QTest::mouseMove(&screen.view(), grip + QPoint(90, 0));
        QTest::mouseRelease(&screen.view(), Qt::LeftButton, {}, grip + QPoint(90, 0));
        QCOMPARE(handle->x(), 270.0);
        screen.view().resize(880, 560);
        screen.settle();
        QCOMPARE(handle->x(), 180.0);
    }
};

QTEST_MAIN(InboxTest)
#include "inbox_test.moc"
