#include "platform/autostart_login_item.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString programPath = u"/usr/bin/env"_s;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

class AutostartLoginItemTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString ownFile() const { return m_folder->filePath(u"own/autostart/com.pingwell.mac.desktop"_s); }
    QString systemFile() const { return m_folder->filePath(u"system/com.pingwell.mac.desktop"_s); }
    AutostartLoginItem item(const QString &program = programPath) const
    {
        return AutostartLoginItem(
            program, {.own = m_folder->filePath(u"own/autostart"_s), .systems = {m_folder->filePath(u"system"_s)}});
    }

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void status_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<LoginItemStatus>("status");
        const QByteArray start = "[Desktop Entry]\nType=Application\nExec=env\n";
        QTest::newRow("no file") << QByteArray() << LoginItemStatus::notRegistered;
        QTest::newRow("plain") << start << LoginItemStatus::enabled;
        QTest::newRow("hidden") << QByteArray(start + "Hidden=true\n") << LoginItemStatus::notRegistered;
        QTest::newRow("not hidden") << QByteArray(start + "Hidden=false\n") << LoginItemStatus::enabled;
        QTest::newRow("off in GNOME") << QByteArray(start + "X-GNOME-Autostart-enabled=false\n")
                                      << LoginItemStatus::notRegistered;
        QTest::newRow("with blanks") << QByteArray(start + " Hidden = true \r\n") << LoginItemStatus::notRegistered;
        QTest::newRow("commented out") << QByteArray(start + "#Hidden=true\n") << LoginItemStatus::enabled;
        QTest::newRow("another group") << QByteArray(start + "[Desktop Action x]\nHidden=true\n")
                                       << LoginItemStatus::enabled;
        QTest::newRow("uninstalled") << QByteArray(start + "TryExec=/nowhere/pingwell\n") << LoginItemStatus::notFound;
        QTest::newRow("nothing to start")
            << QByteArray("[Desktop Entry]\nType=Application\n") << LoginItemStatus::notFound;
        QTest::newRow("no desktop entry") << QByteArray("Exec=env\n\xFF\xFE\n=\n") << LoginItemStatus::notFound;
    }

    void status()
    {
        QFETCH(QByteArray, entry);
        if (!entry.isEmpty())
            write(ownFile(), entry);
        QTEST(item().status(), "status");
        // The person's own file goes before one that came with the system.
        write(systemFile(), "[Desktop Entry]\nExec=env\n");
        if (entry.isEmpty())
            QCOMPARE(item().status(), LoginItemStatus::enabled);
        else
            QTEST(item().status(), "status");
    }

    void switchesOnAndOff()
    {
        AutostartLoginItem login = item();
        QCOMPARE(login.registerProgram(), std::nullopt);
        QCOMPARE(login.status(), LoginItemStatus::enabled);
        QCOMPARE(login.unregisterProgram(), std::nullopt);
        QCOMPARE(login.status(), LoginItemStatus::notRegistered);
        QVERIFY(!QFile::exists(ownFile()));
        // Off is off, also when it was off before.
        QCOMPARE(login.unregisterProgram(), std::nullopt);

        write(ownFile(), "[Desktop Entry]\nExec=env\nX-GNOME-Autostart-enabled=false\n");
        QCOMPARE(login.registerProgram(), std::nullopt);
        QCOMPARE(login.status(), LoginItemStatus::enabled);
    }

    void switchesOffWhatTheSystemBrings()
    {
        write(systemFile(), "[Desktop Entry]\nExec=env\n");
        AutostartLoginItem login = item();
        QCOMPARE(login.unregisterProgram(), std::nullopt);
        QCOMPARE(login.status(), LoginItemStatus::notRegistered);
    }

    void tellsWhyItFailed()
    {
        write(m_folder->filePath(u"own"_s), "a file where the folder should be");
        QVERIFY(item().registerProgram().value_or(QString()).contains(m_folder->path()));
    }

    void execLine_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("plain") << u"/usr/bin/pingwell"_s << QByteArray("Exec=\"/usr/bin/pingwell\"");
        QTest::newRow("blank") << u"/opt/My Apps/pingwell"_s << QByteArray("Exec=\"/opt/My Apps/pingwell\"");
        // Escaped once for the quotes, then once more as a value.
        QTest::newRow("special") << u"/opt/a$b\"c%d\\e"_s << QByteArray("Exec=\"/opt/a\\\\$b\\\\\"c%%d\\\\\\\\e\"");
    }

    void execLine()
    {
        QFETCH(QString, program);
        QCOMPARE(item(program).registerProgram(), std::nullopt);
        QFETCH(QByteArray, line);
        QVERIFY2(contentOf(ownFile()).split('\n').contains(line), contentOf(ownFile()));
    }

    void installationFolders_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<bool>("installed");
        QTest::newRow("/usr") << u"/usr/bin/pingwell"_s << true;
        QTest::newRow("/usr/local") << u"/usr/local/bin/pingwell"_s << true;
        QTest::newRow("/opt") << u"/opt/pingwell/pingwell"_s << true;
        QTest::newRow("home") << u"/home/me/usr/bin/pingwell"_s << false;
        QTest::newRow("only looks like it") << u"/usrlocal/pingwell"_s << false;
        QTest::newRow("out again") << u"/usr/../home/me/pingwell"_s << false;
    }

    void installationFolders()
    {
        QFETCH(QString, program);
        QTEST(item(program).isProgramInstalled(), "installed");
    }
};

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "autostart_login_item_test.moc"
