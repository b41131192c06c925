#include "auth/pkce.h"

#include <QRegularExpression>
#include <QTest>

using namespace pingwell;

class PKCETest : public QObject
{
    Q_OBJECT

private slots:
    void theExampleOfTheStandard()
    {
        // RFC 7636, appendix B.
        const char octets[] = "\x74\x18\xdf\xb4\x97\x99\xe0\x25\x4f\xfa\x60\x7d\xd8\xad\xbb\xba"
                              "\x16\xd4\x25\x4d\x69\xd6\xbf\xf0\x5b\x58\x05\x58\x53\x84\x8d\x79";
        const PKCE pkce = PKCE::from(QByteArray(octets, 32));
        QCOMPARE(pkce.verifier, QStringLiteral("dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk"));
        QCOMPARE(pkce.challenge, QStringLiteral("E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM"));
    }

    void everyPairIsFresh()
    {
        const PKCE first = PKCE::make();
        const PKCE second = PKCE::make();
        const QRegularExpression form(QStringLiteral("^[A-Za-z0-9_-]{43}$"));
        QVERIFY(form.match(first.verifier).hasMatch() && form.match(first.challenge).hasMatch());
        QVERIFY(first.verifier != second.verifier);
    }
};

QTEST_APPLESS_MAIN(PKCETest)
#include "pkce_test.moc"
