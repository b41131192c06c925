#include "linux/desktop_entries/autostart_login_item.h"
#include "linux/desktop_entries/scheme_registration.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The desktop entries that the program writes for itself: for the log-in and for its scheme.
class DesktopEntriesTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_home;

    QString at(const QString &path) const { return m_home->filePath(path); }
    QString autostartFile() const { return at(u"own/autostart/com.pingwell.mac.desktop"_s); }
    QString schemeFile() const { return at(u"own/applications/com.pingwell.mac.desktop"_s); }

    AutostartLoginItem item(const QString &program = u"/usr/bin/env"_s) const
    {
        return AutostartLoginItem(program, {.own = at(u"own/autostart"_s), .systems = {at(u"system"_s)}});
    }
    bool updateScheme(const QString &program) const
    {
        return SchemeRegistration(program, {.own = at(u"own"_s), .systems = {at(u"usr"_s)}}).update();
    }

    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString &path, const QByteArray &text)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

private slots:
    void init() { m_home = std::make_unique<QTemporaryDir>(); }

    void statusOfTheLoginItem()
    {
        QCOMPARE(item().status(), LoginItemStatus::notRegistered);
        write(at(u"system/com.pingwell.mac.desktop"_s), "[Desktop Entry]\nExec=env\n");
        QCOMPARE(item().status(), LoginItemStatus::enabled);
        // The person's own file goes before the one that came with the system.
        const QList<std::pair<QByteArray, LoginItemStatus>> cases{
            {" Hidden = true \r\n", LoginItemStatus::notRegistered},
            {"X-GNOME-Autostart-enabled=false", LoginItemStatus::notRegistered},
            {"[Desktop Action x]\nHidden=true", LoginItemStatus::enabled},
            {"TryExec=/nowhere/pingwell", LoginItemStatus::notFound}};
        for (const auto &[line, status] : cases) {
            write(autostartFile(), "[Desktop Entry]\nType=Application\nExec=env\n" + line);
            QCOMPARE(item().status(), status);
        }
        QCOMPARE(item().registerProgram(), std::nullopt);
        QCOMPARE(item().status(), LoginItemStatus::enabled);
        QCOMPARE(item().unregisterProgram(), std::nullopt);
        QCOMPARE(item().status(), LoginItemStatus::notRegistered);
    }

    void execLineIsEscaped()
    {
        // Once for the quotes, then once more as a value.
        QCOMPARE(item(u"/opt/My Apps/a$b\"c%d\\e"_s).registerProgram(), std::nullopt);
        QVERIFY(contents(autostartFile()).contains("\nExec=\"/opt/My Apps/a\\\\$b\\\\\"c%%d\\\\\\\\e\"\n"));
    }

    void installationFolders()
    {
        for (const QString &program : {u"/usr/local/bin/pingwell"_s, u"/opt/pingwell/pingwell"_s})
            QVERIFY2(item(program).isProgramInstalled(), qPrintable(program));
        for (const QString &program : {u"/home/me/usr/bin/pingwell"_s, u"/usrlocal/pingwell"_s, u"/usr/../home/me/p"_s})
            QVERIFY2(!item(program).isProgramInstalled(), qPrintable(program));
    }

    void schemeComesAndGoes()
    {
        const QString first = u"/build/release/pingwell"_s;
        QVERIFY(updateScheme(first));
        QVERIFY(contents(schemeFile()).contains("Exec=/build/release/pingwell %u\n"));
        QVERIFY(contents(schemeFile()).contains("MimeType=x-scheme-handler/pingwell;\n"));
        QVERIFY2(!updateScheme(first), "nothing to do twice");
        QVERIFY2(updateScheme(u"/build/debug/pingwell"_s), "it follows the program that runs");
        write(at(u"usr/applications/com.pingwell.mac.desktop"_s), "[Desktop Entry]\n");
        QVERIFY(updateScheme(first));
        QVERIFY(!QFile::exists(schemeFile()));
        QVERIFY(!updateScheme(first));
    }

    void schemeOfSomebodyElseStays()
    {
        write(schemeFile(), "[Desktop Entry]\nExec=mine %u\n");
        QVERIFY(!updateScheme(u"/build/pingwell"_s));
        QCOMPARE(contents(schemeFile()), QByteArray("[Desktop Entry]\nExec=mine %u\n"));
    }

    void aPathWithASpaceIsReachedByALink()
    {
        QVERIFY(updateScheme(u"/my builds/pingwell"_s));
        const QString link = at(u"own/pingwell/pingwell"_s);
        QCOMPARE(QFile::symLinkTarget(link), u"/my builds/pingwell"_s);
        QVERIFY(contents(schemeFile()).contains(QByteArray("Exec=" + link.toUtf8() + " %u\n")));
        QVERIFY(!updateScheme(u"/my builds/pingwell"_s));
    }

    // Where no link helps, the entry is written once all the same.
    void aFolderWithASpaceTakesAQuotedPath()
    {
        const auto update = [this] {
            const ApplicationFolders folders{.own = at(u"my own"_s), .systems = {}};
            return SchemeRegistration(u"/my builds/pingwell"_s, folders).update();
        };
        QVERIFY(update());
        QVERIFY(contents(at(u"my own/applications/com.pingwell.mac.desktop"_s))
                    .contains("Exec=\"/my builds/pingwell\" %u\n"));
        QVERIFY(!update());
    }
};

QTEST_GUILESS_MAIN(DesktopEntriesTest)
#include "desktop_entries_test.moc"
