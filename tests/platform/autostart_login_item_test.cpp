#include "platform/autostart_login_item.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class AutostartLoginItemTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString ownFile() const { return m_folder->filePath(u"own/autostart/com.pingwell.mac.desktop"_s); }
    AutostartLoginItem item(const QString &program = u"/usr/bin/env"_s) const
    {
        return AutostartLoginItem(
            program, {.own = m_folder->filePath(u"own/autostart"_s), .systems = {m_folder->filePath(u"system"_s)}});
    }
    static void write(const QString &path, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void status()
    {
        QCOMPARE(item().status(), LoginItemStatus::notRegistered);
        write(m_folder->filePath(u"system/com.pingwell.mac.desktop"_s), "[Desktop Entry]\nExec=env\n");
        QCOMPARE(item().status(), LoginItemStatus::enabled);
        // The person's own file goes before the one that came with the system.
        const QList<std::pair<QByteArray, LoginItemStatus>> cases{
            {" Hidden = true \r\n", LoginItemStatus::notRegistered},
            {"X-GNOME-Autostart-enabled=false", LoginItemStatus::notRegistered},
            {"[Desktop Action x]\nHidden=true", LoginItemStatus::enabled},
            {"TryExec=/nowhere/pingwell", LoginItemStatus::notFound}};
        for (const auto &[line, status] : cases) {
            write(ownFile(), "[Desktop Entry]\nType=Application\nExec=env\n" + line);
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
        QFile file(ownFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nExec=\"/opt/My Apps/a\\\\$b\\\\\"c%%d\\\\\\\\e\"\n"));
    }

    void installationFolders()
    {
        for (const QString &program : {u"/usr/bin/pingwell"_s, u"/opt/pingwell/pingwell"_s})
            QVERIFY2(item(program).isProgramInstalled(), qPrintable(program));
        for (const QString &program : {u"/home/me/usr/bin/pingwell"_s, u"/usrlocal/pingwell"_s, u"/usr/../home/me/p"_s})
            QVERIFY2(!item(program).isProgramInstalled(), qPrintable(program));
    }
};

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "autostart_login_item_test.moc"
