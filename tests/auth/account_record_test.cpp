#include "auth/account_record.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace pingwell;

class AccountRecordTest : public QObject
{
    Q_OBJECT

private slots:
    void writesTheFourKeysAndReadsThemBack();
    void rejects_data();
    void rejects();
};

void AccountRecordTest::writesTheFourKeysAndReadsThemBack()
{
    const Account account{.name = QStringLiteral("Zoë \"Z\" 🐙"),
                          .email = QString(),
                          .provider = AuthProvider::github,
                          .plan = QStringLiteral("Team")};
    const QByteArray record = encodedAccount(account);
    const QJsonObject expected{{QStringLiteral("name"), account.name},
                               {QStringLiteral("email"), QString()},
                               {QStringLiteral("provider"), QStringLiteral("github")},
                               {QStringLiteral("plan"), QStringLiteral("Team")}};
    QCOMPARE(QJsonDocument::fromJson(record).object(), expected);
    QCOMPARE(decodedAccount(record), std::optional(account));
}

void AccountRecordTest::rejects_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("cut off") << QByteArray(R"({"name":"A","email":"a@b.c","provider":"google","plan":"Cl)");
    QTest::newRow("array") << QByteArray(R"(["name","email","provider","plan"])");
    QTest::newRow("no name") << QByteArray(R"({"email":"a@b.c","provider":"google","plan":"Cloud"})");
    QTest::newRow("no e-mail") << QByteArray(R"({"name":"A","provider":"google","plan":"Cloud"})");
    QTest::newRow("no plan") << QByteArray(R"({"name":"A","email":"a@b.c","provider":"google"})");
    QTest::newRow("null plan") << QByteArray(R"({"name":"A","email":"a@b.c","provider":"google","plan":null})");
    QTest::newRow("number as name") << QByteArray(R"({"name":1,"email":"a@b.c","provider":"google","plan":"P"})");
    QTest::newRow("other provider") << QByteArray(R"({"name":"A","email":"a@b.c","provider":"Google","plan":"P"})");
}

void AccountRecordTest::rejects()
{
    QFETCH(QByteArray, record);
    QVERIFY(!decodedAccount(record));
}

QTEST_APPLESS_MAIN(AccountRecordTest)
#include "account_record_test.moc"
