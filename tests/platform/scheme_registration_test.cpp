#include "platform/scheme_registration.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;

class SchemeRegistrationTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_home;

    [[nodiscard]] QString at(const QString &path) const { return m_home->path() + path; }
    [[nodiscard]] QString ownFile() const { return at(QStringLiteral("/own/applications/com.pingwell.mac.desktop")); }

    [[nodiscard]] SchemeRegistration registration(const QString &program) const
    {
        return SchemeRegistration(program,
                                  {.own = at(QStringLiteral("/own")), .systems = {at(QStringLiteral("/usr"))}});
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

    void comesAndGoes()
    {
        const QString first = QStringLiteral("/build/release/pingwell");
        QVERIFY(registration(first).update());
        QVERIFY(contents(ownFile()).contains("Exec=/build/release/pingwell %u\n"));
        QVERIFY(contents(ownFile()).contains("MimeType=x-scheme-handler/pingwell;\n"));
        QVERIFY2(!registration(first).update(), "nothing to do twice");
        QVERIFY2(registration(QStringLiteral("/build/debug/pingwell")).update(), "it follows the program that runs");

        write(at(QStringLiteral("/usr/applications/com.pingwell.mac.desktop")), "[Desktop Entry]\n");
        QVERIFY(registration(first).update());
        QVERIFY(!QFile::exists(ownFile()));
        QVERIFY(!registration(first).update());
    }

    void anEntryOfSomebodyElseStays()
    {
        write(ownFile(), "[Desktop Entry]\nExec=mine %u\n");
        QVERIFY(!registration(QStringLiteral("/build/pingwell")).update());
        QCOMPARE(contents(ownFile()), QByteArray("[Desktop Entry]\nExec=mine %u\n"));
    }

    void aPathWithASpaceIsReachedByALink()
    {
        const QString program = QStringLiteral("/my builds/pingwell");
        QVERIFY(registration(program).update());
        const QString link = at(QStringLiteral("/own/pingwell/pingwell"));
        QCOMPARE(QFile::symLinkTarget(link), program);
        QVERIFY(contents(ownFile()).contains(QByteArray("Exec=" + link.toUtf8() + " %u\n")));
    }
};

QTEST_GUILESS_MAIN(SchemeRegistrationTest)
#include "scheme_registration_test.moc"
