#include "screen_fixture.h"
#include "store_fixture.h"
#include "ui/accessibility_snapshot.h"

#include <QJsonDocument>
#include <QTest>

using namespace pingwell;

namespace {

const QString root = QStringLiteral("RootView");

QJsonObject snapshotElement(const QString &identifier)
{
    const QJsonArray elements = QJsonDocument::fromJson(accessibilitySnapshot().toUtf8()).array();
    for (const QJsonValue &element : elements) {
        if (element[QStringLiteral("id")] == identifier)
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
        QVERIFY(screen.shows(QStringLiteral("loading")));
        QVERIFY(!screen.shows(QStringLiteral("loading.retry")));

        live.transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        live.store->refresh();
        live.settle();
        QCOMPARE(screen.name(QStringLiteral("loading")),
                 QStringLiteral("Can't reach the Pingwell server. Check your connection."));
        live.transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        screen.click(QStringLiteral("loading.retry"));
        QTRY_VERIFY(screen.shows(QStringLiteral("inbox.list")));
        QVERIFY(screen.shows(QStringLiteral("inbox.empty")));
        QVERIFY(!screen.shows(QStringLiteral("connection.problem")));

        live.transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        live.store->refresh();
        QTRY_VERIFY(screen.shows(QStringLiteral("connection.problem")));
        live.transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        screen.settle();
        screen.click(QStringLiteral("connection.retry"));
        QTRY_VERIFY(!screen.shows(QStringLiteral("connection.problem")));

        live.store->endSession(QStringLiteral("Signed out elsewhere."));
        screen.settle();
        QVERIFY(screen.shows(QStringLiteral("signin.github")));
        QCOMPARE(screen.name(QStringLiteral("signin.error")), QStringLiteral("Signed out elsewhere."));
    }

    void previewShowsThePanelEvenSignedOut()
    {
        Screen screen(root, makeSeed({}), false, {{QStringLiteral("popoverPreview"), true}});
        QVERIFY(screen.shows(QStringLiteral("popover.preview")));
        QVERIFY(screen.shows(QStringLiteral("popover.signedOut")));
        QVERIFY(!screen.shows(QStringLiteral("signin")));
    }

    void alertOpensAndIsAnsweredInTheInbox()
    {
        Screen screen(root, makeSeed({makeChoice(QStringLiteral("a1"), QStringLiteral("Ship it?"), 5),
                                      makeAlert(QStringLiteral("n1"), QStringLiteral("Done"), 9)}));
        QVERIFY(screen.shows(QStringLiteral("detail.empty")));
        QCOMPARE(screen.name(QStringLiteral("inbox.count")), QStringLiteral("2 alerts · 2 unread"));
        QCOMPARE(screen.name(QStringLiteral("alert.row.a1")),
                 QStringLiteral("Deploy bot, #deploys, 5m, Ship it?, Needs reply, Expires in —"));
        screen.click(QStringLiteral("alert.row.n1"));
        QCOMPARE(screen.name(QStringLiteral("detail.title")), QStringLiteral("Done"));
        QVERIFY(!screen.shows(QStringLiteral("detail.countdown")));
        screen.click(QStringLiteral("alert.row.a1"));
        QCOMPARE(screen.name(QStringLiteral("detail.title")), QStringLiteral("Ship it?"));
        screen.click(QStringLiteral("detail.action.1"));
        QCOMPARE(screen.name(QStringLiteral("detail.answered")), QStringLiteral("You replied “Approve”"));
        QCOMPARE(screen.name(QStringLiteral("inbox.count")), QStringLiteral("2 alerts · 1 unread"));
    }

    void sheetMakesAWorkspace()
    {
        Screen screen(root, makeSeed({}));
        screen.click(QStringLiteral("sidebar.workspace"));
        screen.click(QStringLiteral("sidebar.workspace.create"));
        QVERIFY(screen.shows(QStringLiteral("workspace.createSheet")));
        QCOMPARE(screen.focused(), QStringLiteral("workspace.create.name"));
        QVERIFY(!screen.find(QStringLiteral("workspace.create.submit"))->isEnabled());
        screen.type(QStringLiteral("Research"));
        screen.click(QStringLiteral("workspace.create.submit"));
        QVERIFY(!screen.shows(QStringLiteral("workspace.createSheet")));
        QVERIFY(!screen.store().isCreatingWorkspace());
        QCOMPARE(screen.store().activeWorkspace()->name, QStringLiteral("Research"));

        screen.store().setIsCreatingWorkspace(true);
        screen.settle();
        screen.press(Qt::Key_Escape);
        QVERIFY(!screen.store().isCreatingWorkspace());
    }

    void requestedReplyIsWrittenAtOnce()
    {
        const QString first = QStringLiteral("a1");
        const QString second = QStringLiteral("a2");
        AppStore store(
            makeSeed({makeTextAsk(first, QStringLiteral("Why?"), 5), makeTextAsk(second, QStringLiteral("When?"), 6)}),
            true, nullptr, dayEnd, nullptr, std::make_shared<ManualClock>(dayEnd));
        store.revealAlert(first);
        store.requestReply(first);
        Screen screen(root, store);
        QCOMPARE(screen.focused(), QStringLiteral("detail.reply"));
        QVERIFY(store.requestedReplyID().isEmpty());

        screen.type(QStringLiteral("So"));
        store.revealAlert(second);
        store.requestReply(second);
        screen.settle();
        screen.type(QStringLiteral("Soon"));
        QCOMPARE(store.replyDraft(first), QStringLiteral("So"));
        QCOMPARE(store.replyDraft(second), QStringLiteral("Soon"));
        QVERIFY(store.requestedReplyID().isEmpty());
    }

    void snapshotTellsWhatIsSeen()
    {
        Screen screen(root, makeSeed({makeTextAsk(QStringLiteral("a1"), QStringLiteral("Why?"), 5)}));
        screen.store().selectAlert(QStringLiteral("a1"));
        screen.store().setReplyDraft(QStringLiteral("Because"), QStringLiteral("a1"));
        screen.settle();
        const QJsonObject row = snapshotElement(QStringLiteral("alert.row.a1"));
        QCOMPARE(row[QStringLiteral("role")], QStringLiteral("Button"));
        QCOMPARE(row[QStringLiteral("name")], screen.name(QStringLiteral("alert.row.a1")));
        QCOMPARE(row[QStringLiteral("value")], QStringLiteral("unread"));
        QCOMPARE(row[QStringLiteral("enabled")], true);
        const QJsonObject field = snapshotElement(QStringLiteral("detail.reply"));
        QCOMPARE(field[QStringLiteral("value")], QStringLiteral("Because"));
        const QQuickItem *const item = screen.find(QStringLiteral("detail.reply"));
        QCOMPARE(field[QStringLiteral("x")].toDouble(), item->mapToGlobal(QPointF()).x());
        QCOMPARE(field[QStringLiteral("width")].toDouble(), item->width());
        QVERIFY(snapshotElement(QStringLiteral("sidebar.workspace.create")).isEmpty());
        screen.click(QStringLiteral("sidebar.workspace"));
        QCOMPARE(snapshotElement(QStringLiteral("sidebar.workspace.create"))[QStringLiteral("name")],
                 QStringLiteral("New team workspace…"));
        QCOMPARE(snapshotElement(QStringLiteral("sidebar.workspace.option.w1"))[QStringLiteral("checked")], true);
    }
};

QTEST_MAIN(RootViewTest)
#include "root_view_test.moc"
