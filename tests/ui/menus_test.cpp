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
    void rightButtonOpensAtThePointer()
    {
        const std::tuple<SidebarSection, QString, QString> rows[] = {
            {SidebarSection::inbox, u"alert.row.n1"_s, u".toggleRead"_s},
            {SidebarSection::topics, u"topic.t1"_s, u".quietHours"_s},
            {SidebarSection::team, u"team.member.ann"_s, u".changeRole"_s},
            {SidebarSection::settings, u"settings.device.d1"_s, u".remove"_s}};
        for (const auto &[section, row, entry] : rows) {
            SectionScreen screen(section);
            const QString firstEntry = row + entry;
            for (const QPointF pointer : {QPointF(120, 20), QPointF(160, 30)}) {
                screen.rightClick(row, pointer);
                const QPointF offset = screen.place(firstEntry) - screen.place(row, pointer);
                QVERIFY2(offset.x() >= 0 && offset.x() < 10 && offset.y() >= 0 && offset.y() < 10,
                         qPrintable(firstEntry));
                screen.press(Qt::Key_Escape);
                QVERIFY(!screen.shows(firstEntry));
            }
            const QString button = row + u".menu"_s;
            QCOMPARE(screen.shows(button), section != SidebarSection::inbox);
            if (section == SidebarSection::inbox)
                continue;
            screen.click(button);
            const QPointF below = screen.place(firstEntry) - screen.place(button);
            QVERIFY(below.x() < 0 && below.y() > 20 && below.y() < 40);
            screen.click(button);
            QVERIFY(!screen.shows(firstEntry));
        }
    }

    /// Where each row has a menu of its own, and where all have one together.
    void menuOfAnotherRowKeepsTheKeyboard()
    {
        const std::tuple<SidebarSection, QString, QString, QString> rows[] = {
            {SidebarSection::topics, u"topic.t1"_s, u"topic.t2"_s, u".quietHours"_s},
            {SidebarSection::team, u"team.member.ann"_s, u"team.member.own"_s, u".changeRole"_s}};
        for (const auto &[section, row, other, entry] : rows) {
            SectionScreen screen(section);
            screen.appearance().setMotionReduced(false);
            screen.press(Qt::Key_Tab);
            screen.rightClick(row, {120, 20});
            QVERIFY(screen.shows(row + entry));
            screen.rightClick(other, {400, 20});
            // A menu is gone only once it has faded.
            QTRY_VERIFY(!screen.shows(row + entry));
            screen.press(Qt::Key_Down);
            QCOMPARE(screen.focused(), other + entry);
        }
    }

    void keysMoveAmongWhatCanBeChosen()
    {
        const QString hours = u"settings.quietFrom"_s, ann = u"team.member.ann"_s;
        const std::tuple<QString, QList<QKeyCombination>, QString> rows[] = {
            {hours, {Qt::Key_Home}, u".00:00"_s},
            {hours, {Qt::Key_End}, u".23:00"_s},
            {hours, {Qt::Key_End, Qt::Key_Up}, u".22:00"_s},
            {hours, {Qt::Key_PageUp}, u".13:00"_s},
            {hours, {Qt::Key_PageDown}, u".23:00"_s},
            {ann, {Qt::Key_End}, u".remove"_s},
            {ann, {Qt::Key_End, Qt::Key_Home}, u".changeRole"_s},
            {ann, {Qt::Key_Down, Qt::Key_Right, Qt::Key_End}, u".role.viewer"_s},
            // The first role can't be chosen.
            {ann, {Qt::Key_Down, Qt::Key_Right, Qt::Key_End, Qt::Key_Home}, u".role.admin"_s}};
        for (const auto &[list, keys, entry] : rows) {
            SectionScreen screen(list == hours ? SidebarSection::settings : SidebarSection::team);
            screen.click(list == hours ? hours : ann + u".menu"_s);
            screen.press(keys);
            QCOMPARE(screen.focused(), list + entry);
        }
    }
};

QTEST_MAIN(MenusTest)
#include "menus_test.moc"
