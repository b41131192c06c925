#include "screen_fixture.h"
#include "ui/engine/accessibility_snapshot.h"

#include <QJsonDocument>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString root = u"RootView"_s;

QJsonObject snapshotElement(const QString &identifier)
{
    const QJsonArray elements = QJsonDocument::fromJson(accessibilitySnapshot().toUtf8()).array();
    for (const QJsonValue &element : elements) {
        if (element[u"id"_s] == identifier)
            return element.toObject();
    }
    return {};
}

} // namespace

class RootViewTest : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatTheSessionAllows()
    {
        StoreFixture live;
        live.start();
        Screen screen(root, *live.store);
        QVERIFY(screen.shows(u"loading"_s) && !screen.shows(u"loading.retry"_s));
        live.refreshWith(ScriptedAnswer::noAnswer());
        QCOMPARE(screen.name(u"loading"_s), u"Can't reach the Pingwell server. Check your connection."_s);
        live.transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        screen.click(u"loading.retry"_s);
        QTRY_VERIFY(screen.shows(u"inbox.list"_s));
        QVERIFY(screen.shows(u"inbox.empty"_s) && !screen.shows(u"connection.problem"_s));

        live.refreshWith(ScriptedAnswer::noAnswer());
        QVERIFY(screen.shows(u"connection.problem"_s));
        live.transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        screen.click(u"connection.retry"_s);
        QTRY_VERIFY(!screen.shows(u"connection.problem"_s));

        live.store->endSession(u"Signed out\nelsewhere."_s);
        QVERIFY(screen.shows(u"signin.github"_s));
        QCOMPARE(screen.name(u"signin.error"_s), u"Signed out elsewhere."_s);
    }

    void messagesOfTheServiceAreMadeSafeToShow()
    {
        StoreFixture live;
        live.startWith({});
        Screen screen(root, *live.store);
        const QByteArray hostile = "Not \\u202Eyet\\u0007, " + QByteArray(100'000, 'x');
        live.refreshWith(ScriptedAnswer::failure(500, {}, hostile));
        live.store->showToast(QString::fromUtf8(hostile), true);
        for (const QString &identifier : {u"connection.problem"_s, u"toast"_s}) {
            QVERIFY(screen.name(identifier).startsWith(u"Not"_s));
            QVERIFY(screen.name(identifier).size() < 400 && !screen.name(identifier).contains(QChar(0x202E)));
        }
    }

    void sheetMakesAWorkspace()
    {
        Screen screen(root, makeSeed({}));
        screen.click({u"sidebar.workspace"_s, u"sidebar.workspace.create"_s});
        QVERIFY(screen.shows(u"workspace.createSheet"_s));
        QCOMPARE(screen.focused(), u"workspace.create.name"_s);
        QVERIFY(!screen.canUse(u"workspace.create.submit"_s));
        screen.type(u"Research"_s);
        screen.click(u"workspace.create.submit"_s);
        QVERIFY(!screen.shows(u"workspace.createSheet"_s) && !screen.store().isCreatingWorkspace());
        QCOMPARE(screen.store().activeWorkspace()->name, u"Research"_s);

        screen.store().setIsCreatingWorkspace(true);
        QCOMPARE(screen.drawnOver().join(u" | "),
                 u"*New team workspace | Share alerts with your team. You'll be its owner."
                 " | *Name | Platform team | Cancel | Create"_s);
        screen.click(u"workspace.create.cancel"_s);
        QVERIFY(!screen.store().isCreatingWorkspace() && screen.drawnOver().isEmpty());
    }

    void requestedReplyIsWrittenAtOnce()
    {
        const QString first = u"a1"_s, second = u"a2"_s;
        AppStore store(makeSeed({makeTextAsk(first, u"Why?"_s, 5), makeTextAsk(second, u"When?"_s, 6)}), true, nullptr,
                       dayEnd, nullptr, std::make_shared<ManualClock>(dayEnd));
        store.revealAlert(first);
        store.requestReply(first);
        Screen screen(root, store);
        QCOMPARE(screen.focused(), u"detail.reply"_s);
        QVERIFY(store.requestedReplyID().isEmpty());

        screen.type(u"So"_s);
        store.revealAlert(second);
        store.requestReply(second);
        screen.type(u"Soon"_s);
        QCOMPARE(store.replyDraft(first), u"So"_s);
        QCOMPARE(store.replyDraft(second), u"Soon"_s);
    }

    void snapshotTellsWhatIsSeen()
    {
        Screen screen(root, makeSeed({makeTextAsk(u"a1"_s, u"Why?"_s, 5)}));
        screen.store().selectAlert(u"a1"_s);
        screen.store().setReplyDraft(u"Because"_s, u"a1"_s);
        screen.settle();
        const QJsonObject row = snapshotElement(u"alert.row.a1"_s);
        QCOMPARE(row[u"role"_s], u"Button"_s);
        QCOMPARE(row[u"name"_s], u"Deploy bot, #deploys, 5m, Why?, Needs reply, Expires in —"_s);
        QCOMPARE(row[u"value"_s], u"unread"_s);
        QCOMPARE(row[u"enabled"_s], true);
        const QJsonObject field = snapshotElement(u"detail.reply"_s);
        QCOMPARE(field[u"value"_s], u"Because"_s);
        const QQuickItem *const item = screen.find(u"detail.reply"_s);
        QCOMPARE(field[u"x"_s].toDouble(), item->mapToGlobal(QPointF()).x());
        QCOMPARE(field[u"width"_s].toDouble(), item->width());
        QVERIFY(snapshotElement(u"sidebar.workspace.create"_s).isEmpty());
        screen.click(u"sidebar.workspace"_s);
        QCOMPARE(snapshotElement(u"sidebar.workspace.create"_s)[u"name"_s], u"New team workspace…"_s);
        QCOMPARE(snapshotElement(u"sidebar.workspace.option.w1"_s)[u"checked"_s], true);
    }
};

QTEST_MAIN(RootViewTest)
#include "root_view_test.moc"
