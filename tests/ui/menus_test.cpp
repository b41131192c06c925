#include "screen_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// A row or more of every list that has menus.
SeedData aDay()
{
    SeedData seed =
        makeSeed({makeAlert(u"n1"_s, u"Notice"_s, 1), makeAlert(u"n2"_s, u"Another"_s, 2)}, WorkspaceRole::admin);
    const auto active = MemberStatus::active;
    seed.members[u"w1"_s] = {{u"you"_s, {}, u"you@x.test"_s, WorkspaceRole::admin, active, {}, true},
                             {u"ann"_s, {}, u"ann@x.test"_s, WorkspaceRole::member, active, {}, false},
                             {u"own"_s, {}, u"own@x.test"_s, WorkspaceRole::owner, active, {}, false}};
    seed.devices << Device{u"d1"_s, u"Phone"_s, DevicePlatform::ios, u"1.2"_s, dayEnd};
    seed.topics << Topic{u"t2"_s, u"w1"_s, u"builds"_s, Priority::normal, false, false, {}};
    seed.settings.quietHoursEnabled = true;
    return seed;
}

/// The section in a window that is high enough for all of it.
struct SectionScreen : Screen
{
    explicit SectionScreen(SidebarSection section)
        : Screen(u"RootView"_s, aDay())
    {
        view().resize(1080, 1800);
        store().setSection(section);
        settle();
    }
};

} // namespace

class MenusTest : public QObject
{
    Q_OBJECT

private slots:
    void rightButtonOpensAtThePointer_data()
    {
        QTest::addColumn<SidebarSection>("section");
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("firstEntry");
        QTest::newRow("inbox") << SidebarSection::inbox << u"alert.row.n1"_s << u"alert.row.n1.toggleRead"_s;
        QTest::newRow("topics") << SidebarSection::topics << u"topic.t1"_s << u"topic.t1.quietHours"_s;
        QTest::newRow("team") << SidebarSection::team << u"team.member.ann"_s << u"team.member.ann.changeRole"_s;
        QTest::newRow("devices") << SidebarSection::settings << u"settings.device.d1"_s
                                 << u"settings.device.d1.remove"_s;
    }

    void rightButtonOpensAtThePointer()
    {
        QFETCH(SidebarSection, section);
        QFETCH(QString, row);
        QFETCH(QString, firstEntry);
        SectionScreen screen(section);
        for (const QPointF pointer : {QPointF(120, 20), QPointF(160, 30)}) {
            screen.rightClick(row, pointer);
            const QPointF offset = screen.place(firstEntry) - screen.place(row, pointer);
            QVERIFY2(offset.x() >= 0 && offset.x() < 10 && offset.y() >= 0 && offset.y() < 10, qPrintable(firstEntry));
            screen.press(Qt::Key_Escape);
            QVERIFY(!screen.shows(firstEntry));
        }
        const QString button = row + u".menu"_s;
        if (!screen.shows(button))
            return;
        screen.click(button);
        const QPointF below = screen.place(firstEntry) - screen.place(button);
        QVERIFY(below.x() < 0 && below.y() > 20 && below.y() < 40);
        screen.click(button);
        QVERIFY(!screen.shows(firstEntry));
    }

    void menuOfAnotherRowKeepsTheKeyboard_data()
    {
        QTest::addColumn<SidebarSection>("section");
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("other");
        QTest::addColumn<QString>("entry");
        QTest::newRow("a menu each") << SidebarSection::topics << u"topic.t1"_s << u"topic.t2"_s << u".quietHours"_s;
        QTest::newRow("one for all") << SidebarSection::team << u"team.member.ann"_s << u"team.member.own"_s
                                     << u".changeRole"_s;
    }

    void menuOfAnotherRowKeepsTheKeyboard()
    {
        QFETCH(SidebarSection, section);
        QFETCH(QString, row);
        QFETCH(QString, other);
        QFETCH(QString, entry);
        SectionScreen screen(section);
        screen.appearance().setMotionReduced(false);
        screen.rightClick(row, {120, 20});
        QVERIFY(screen.shows(row + entry));
        screen.rightClick(other, {400, 20});
        // A menu is gone only once it has faded.
        QTRY_VERIFY(!screen.shows(row + entry));
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.focused(), other + entry);
    }

    void keysMoveAmongWhatCanBeChosen_data()
    {
        using Steps = QList<Qt::Key>;
        QTest::addColumn<SidebarSection>("section");
        QTest::addColumn<QString>("opener");
        QTest::addColumn<QList<Qt::Key>>("keys");
        QTest::addColumn<QString>("focus");
        const QString hours = u"settings.quietFrom"_s;
        const QString ann = u"team.member.ann.menu"_s;
        const auto settings = SidebarSection::settings;
        const auto team = SidebarSection::team;
        QTest::newRow("home") << settings << hours << Steps{Qt::Key_Home} << hours + u".00:00"_s;
        QTest::newRow("end") << settings << hours << Steps{Qt::Key_End} << hours + u".23:00"_s;
        QTest::newRow("end and up") << settings << hours << Steps{Qt::Key_End, Qt::Key_Up} << hours + u".22:00"_s;
        QTest::newRow("up a page") << settings << hours << Steps{Qt::Key_PageUp} << hours + u".13:00"_s;
        QTest::newRow("page beyond the end") << settings << hours << Steps{Qt::Key_PageDown} << hours + u".23:00"_s;
        QTest::newRow("menu") << team << ann << Steps{Qt::Key_End} << u"team.member.ann.remove"_s;
        QTest::newRow("menu, back") << team << ann << Steps{Qt::Key_End, Qt::Key_Home}
                                    << u"team.member.ann.changeRole"_s;
        QTest::newRow("menu within") << team << ann << Steps{Qt::Key_Down, Qt::Key_Right, Qt::Key_End}
                                     << u"team.member.ann.role.viewer"_s;
        QTest::newRow("disabled first entry")
            << team << ann << Steps{Qt::Key_Down, Qt::Key_Right, Qt::Key_End, Qt::Key_Home}
            << u"team.member.ann.role.admin"_s;
    }

    void keysMoveAmongWhatCanBeChosen()
    {
        QFETCH(SidebarSection, section);
        QFETCH(QString, opener);
        QFETCH(QList<Qt::Key>, keys);
        SectionScreen screen(section);
        screen.click(opener);
        for (const Qt::Key key : keys)
            screen.press(key);
        QTEST(screen.focused(), "focus");
    }
};

QTEST_MAIN(MenusTest)
#include "menus_test.moc"
