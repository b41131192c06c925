#include "auth/account_record.h"
#include "auth/pkce.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class AuthValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void accountRecord()
    {
        const Account account{
            .name = u"Zoë \"Z\" 🐙"_s, .email = QString(), .provider = AuthProvider::github, .plan = u"Team"_s};
        const QByteArray record = encodedAccount(account);
        QCOMPARE(decodedAccount(record), std::optional(account));
        const QJsonObject object = QJsonDocument::fromJson(record).object();
        QCOMPARE(object.keys(), (QStringList{u"email"_s, u"name"_s, u"plan"_s, u"provider"_s}));
        QCOMPARE(object.value(u"provider"_s), u"github"_s);

        // A damaged record is no account.
        QVERIFY(!decodedAccount({}) && !decodedAccount(record.chopped(1)) && !decodedAccount('[' + record + ']'));
        for (const QString &key : object.keys()) {
            for (const QJsonValue &wrong : {QJsonValue(QJsonValue::Undefined), QJsonValue(), QJsonValue(1)}) {
                QJsonObject damaged = object;
                damaged.insert(key, wrong);
                QVERIFY2(!decodedAccount(QJsonDocument(damaged).toJson()), qPrintable(key));
            }
        }
        QVERIFY(!decodedAccount(QByteArray(record).replace("github", "GitHub")));
    }

    void pkce()
    {
        // RFC 7636, appendix B.
        const char octets[] = "\x74\x18\xdf\xb4\x97\x99\xe0\x25\x4f\xfa\x60\x7d\xd8\xad\xbb\xba"
                              "\x16\xd4\x25\x4d\x69\xd6\xbf\xf0\x5b\x58\x05\x58\x53\x84\x8d\x79";
        const PKCE example = PKCE::from(QByteArray(octets, 32));
        QCOMPARE(example.verifier, u"dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk"_s);
        QCOMPARE(example.challenge, u"E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM"_s);
        const PKCE fresh = PKCE::make();
        QVERIFY(QRegularExpression(u"^[A-Za-z0-9_-]{43}$"_s).match(fresh.verifier).hasMatch());
        QVERIFY(fresh.verifier != PKCE::make().verifier);
    }
};

QTEST_APPLESS_MAIN(AuthValuesTest)
#include "auth_values_test.moc"
