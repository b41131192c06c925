#include "ui/display_text.h"

#include <QTest>

using namespace pingwell;

class DisplayTextTest : public QObject
{
    Q_OBJECT

private slots:
    void texts_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<QString>("shown");
        const QString family = QStringLiteral("👩\u200D👩\u200D👧");
        QTest::newRow("plain") << QStringLiteral("Ship it?") << QStringLiteral("Ship it?");
        QTest::newRow("markup stays text")
            << QStringLiteral("<img src=x> &amp;") << QStringLiteral("<img src=x> &amp;");
        QTest::newRow("newline and tab stay") << QStringLiteral("a\n\tb") << QStringLiteral("a\n\tb");
        QTest::newRow("C0, DEL and C1 go")
            << QStringLiteral("a\u0000\u0007\u001B\u007F\u0085\u009Fb") << QStringLiteral("ab");
        QTest::newRow("carriage returns go") << QStringLiteral("a\r\nb") << QStringLiteral("a\nb");
        QTest::newRow("overrides and isolates go")
            << QStringLiteral("pay \u202Ecba\u202C \u2066x\u2069 \u200Fy\u200E \u061Cz")
            << QStringLiteral("pay cba x y z");
        QTest::newRow("invisible ones go") << QStringLiteral("\uFEFFa\u200Bb\u2060c\u00ADd") << QStringLiteral("abcd");
        QTest::newRow("joiners stay") << family << family;
        QTest::newRow("three newlines at most") << QStringLiteral("a\n\n\n\n\nb") << QStringLiteral("a\n\n\nb");
        QTest::newRow("hidden ones do not part newlines")
            << QStringLiteral("a\n\n\u200B\n\n\nb") << QStringLiteral("a\n\n\nb");
        QTest::newRow("200 in a row stay whole") << QString(200, u'x') << QString(200, u'x');
        QTest::newRow("201 are broken") << QString(201, u'x') << QString(200, u'x') + QStringLiteral("\u200Bx");
        QTest::newRow("a space starts a new run")
            << QString(150, u'x') + u' ' + QString(150, u'x') << QString(150, u'x') + u' ' + QString(150, u'x');
    }

    void texts()
    {
        QFETCH(QString, raw);
        QFETCH(QString, shown);
        QCOMPARE(displayText(raw), (DisplayText{shown, false}));
    }

    void runsBreakOnlyBetweenCharacters()
    {
        // 199 units, then a character of two and one with a mark: neither may be split.
        const QString raw = QString(199, u'x') + QStringLiteral("😀e\u0301y");
        const QString shown = displayText(raw).text;
        QCOMPARE(shown.count(u'\u200B'), 1);
        QVERIFY(!shown.contains(QStringLiteral("\u200B\u0301")));
        QVERIFY(shown.contains(QStringLiteral("😀")));
        QVERIFY(displayText(QStringLiteral("😀\u200D").repeated(500)).text.contains(u'\u200B'));
    }

    void longTextsAreCut_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<qsizetype>("maximum");
        QTest::addColumn<QString>("shown");
        QTest::newRow("just fits") << QStringLiteral("12345") << qsizetype(5) << QString();
        QTest::newRow("one too many") << QStringLiteral("123456") << qsizetype(5) << QStringLiteral("12345…");
        QTest::newRow("not through a surrogate pair")
            << QStringLiteral("1234😀6") << qsizetype(5) << QStringLiteral("1234…");
        QTest::newRow("what goes does not count") << QStringLiteral("12\u200B\u200B345") << qsizetype(5) << QString();
    }

    void longTextsAreCut()
    {
        QFETCH(QString, raw);
        QFETCH(qsizetype, maximum);
        QFETCH(QString, shown);
        const DisplayText text = displayText(raw, maximum);
        QCOMPARE(text.isCut, !shown.isEmpty());
        if (text.isCut)
            QCOMPARE(text.text, shown);
    }

    void namesStandOnOneLineAndByThemselves()
    {
        QCOMPARE(displayLine(QStringLiteral(" a\n\tb  c ")), QStringLiteral("a b c"));
        QCOMPARE(displayLine(QString(400, u'x'), 100).size(), 101);
        QCOMPARE(displayName(QStringLiteral("Bot")), QStringLiteral("Bot"));
        QCOMPARE(displayName(QStringLiteral("בוט")), QStringLiteral("\u2068בוט\u2069"));
        QCOMPARE(displayName(QStringLiteral("\u202E\u200B")), QString());
    }
};

QTEST_APPLESS_MAIN(DisplayTextTest)
#include "display_text_test.moc"
