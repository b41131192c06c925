#include "auth/account_record.h"
#include "auth/pkce.h"

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
            .name = u"Zoë 🐙"_s, .email = QString(), .provider = AuthProvider::github, .plan = u"Team"_s};
        const QByteArray record = encodedAccount(account);
        QCOMPARE(record, R"({"email":"","name":"Zoë 🐙","plan":"Team","provider":"github"})"_ba);
        QCOMPARE(decodedAccount(record), std::optional(account));
        QCOMPARE(decodedAccount(QByteArray(record).replace("{", R"({"later":[],)")), std::optional(account));

        // A damaged record is no account.
        QVERIFY(!decodedAccount({}) && !decodedAccount(record.chopped(1)) && !decodedAccount('[' + record + ']'));
        for (const QByteArray field : {R"("email":"")", R"("plan":"Team")", R"("provider":"github")"}) {
            const QByteArray key = field.first(field.indexOf(':') + 1);
            for (const QByteArray &wrong : QByteArrayList{R"("x":"")", key + "null", key + '1'})
                QVERIFY2(!decodedAccount(QByteArray(record).replace(field, wrong)), key.constData());
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
        QVERIFY(PKCE::make().verifier != PKCE::make().verifier);
    }
};

QTEST_APPLESS_MAIN(AuthValuesTest)
#include "auth_values_test.moc"
