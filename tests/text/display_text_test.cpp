#include "text/choice_labels.h"
#include "text/display_text.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class DisplayTextTest : public QObject
{
    Q_OBJECT

private slots:
    void texts()
    {
        const QString family = u"👩\u200D👩\u200D👧"_s;
        const QString twice = QString(150, u'x') + u' ' + QString(150, u'x');
        const QList<std::pair<QString, QString>> pairs{
            {u"<img src=x> &amp;"_s, u"<img src=x> &amp;"_s},
            {u"a\n\tb"_s, u"a\n\tb"_s},
            {u"a\u0000\u0007\u001B\u007F\u0085\u009Fb\r\nc"_s, u"ab\nc"_s},
            {u"pay \u202Ecba\u202C \u2066x\u2069 \u200Fy\u200E \u061Cz"_s, u"pay cba x y z"_s},
            {u"\uFEFFa\u200Bb\u2060c\u00ADd"_s, u"abcd"_s},
            {family, family},
            {u"a\n\n\n\n\nb"_s, u"a\n\n\nb"_s},
            {u"a\n\n\u200B\n\n\nb"_s, u"a\n\n\nb"_s},
            {QString(200, u'x'), QString(200, u'x')},
            {QString(201, u'x'), QString(200, u'x') + u"\u200Bx"_s},
            {twice, twice}};
        for (const auto &[raw, shown] : pairs)
            QCOMPARE(displayText(raw), (DisplayText{shown, false}));
    }

    void runsBreakOnlyBetweenCharacters()
    {
        // 199 units, then a character of two and one with a mark: neither may be split.
        const QString raw = QString(199, u'x') + u"😀e\u0301y"_s;
        const QString shown = displayText(raw).text;
        QCOMPARE(shown.count(u'\u200B'), 1);
        QVERIFY(!shown.contains(u"\u200B\u0301"_s));
        QVERIFY(shown.contains(u"😀"_s));
        QVERIFY(displayText(u"😀\u200D"_s.repeated(500)).text.contains(u'\u200B'));
    }

    void longTextsAreCut()
    {
        QVERIFY(!displayText(u"12345"_s, 5).isCut);
        QVERIFY(!displayText(u"12\u200B\u200B345"_s, 5).isCut);
        QCOMPARE(displayText(u"123456"_s, 5), (DisplayText{u"12345…"_s, true}));
        QCOMPARE(displayText(QString(u"\u200B"_s.repeated(100) + u'1'), 5), (DisplayText{{}, true}));
        QCOMPARE(displayText(u"1234😀6"_s, 5), (DisplayText{u"1234…"_s, true}));
    }

    void namesStandOnOneLineAndByThemselves()
    {
        QCOMPARE(displayLine(u" a\n\tb  c "_s), u"a b c"_s);
        QCOMPARE(displayLine(QString(400, u'x'), 100).size(), 101);
        QCOMPARE(displayName(u"Bot"_s), u"Bot"_s);
        QCOMPARE(displayName(u"בוט"_s), u"\u2068בוט\u2069"_s);
        QCOMPARE(displayLine(u"\u3164\u034F\u2800"_s.repeated(300) + u"a\uFFA0b\u3164"_s, 100), u"a b"_s);
    }

    void whatCannotBeSeenIsEmpty()
    {
        const QString tag = QString::fromUcs4(U"\U000E0041\U000E007F");
        for (const QString &raw : QStringList{u"\u202E\u200B"_s, u" \n\u00A0\u3000"_s, u"\u3164"_s, u"\u115F\u1160"_s,
                                              u"\uFFA0"_s, u"\u2800"_s, u"\u034F"_s, u"\uFE0F"_s, u"\u200D\u200C"_s,
                                              u"\u180B"_s, u"\uFFFC"_s, tag, QString::fromUcs4(U"\U000E0100")}) {
            QCOMPARE(displayText(raw), DisplayText());
            QCOMPARE(displayName(raw), QString());
            QCOMPARE(visibleName(raw), u"(no name)"_s);
        }
        for (const QString &raw : QStringList{u"\u2764\uFE0F"_s, u"\u115F\u1161"_s, u"\u0301"_s, u"-"_s,
                                              QString::fromUcs4(U"\U0001F3F4") + tag})
            QCOMPARE(displayText(raw).text, raw);
    }

    void linesThatLookTheSame()
    {
        QCOMPARE(seenOf(u"De\u034Flete it\uFE0F"_s), u"Delete it"_s);
        QCOMPARE(seenOf(u"\uFB01le e\u0301"_s), u"file \u00E9"_s);
        QVERIFY(seenOf(u"Delete"_s) != seenOf(u"delete"_s));
    }

    void choicesAreToldApart()
    {
        const QString words = u"Delete what nobody reads "_s.repeated(40) + u"in "_s;
        const QList<std::pair<QStringList, QStringList>> pairs{
            {{u"Hold"_s, words + u"staging"_s, words + u"production"_s},
             {u"Hold"_s, words + u"staging"_s, words + u"production"_s}},
            {{u"Hold"_s, u"\u3164"_s, u"\u2800"_s}, {u"Hold"_s, u"Choice 2"_s, u"Choice 3"_s}},
            {{u"Yes"_s, u"No"_s, u" Yes\uFE0F\n"_s}, {u"Yes (choice 1)"_s, u"No"_s, u"Yes\uFE0F (choice 3)"_s}},
            {{u"Choice 2"_s, u""_s}, {u"Choice 2 (choice 1)"_s, u"Choice 2 (choice 2)"_s}},
            {{u"Yes"_s, u"Yes"_s, u"Yes (choice 1)"_s},
             {u"Yes (choice 1)"_s, u"Yes (choice 2)"_s, u"Yes (choice 1) (choice 3)"_s}},
            {{u"כן"_s, u"כן"_s}, {u"\u2068כן\u2069 (choice 1)"_s, u"\u2068כן\u2069 (choice 2)"_s}}};
        for (const auto &[actions, labels] : pairs)
            QCOMPARE(choiceLabels(actions), labels);
        const QStringList many = choiceLabels(QStringList(400, words.repeated(100)));
        QVERIFY(many.join(QString()).size() < qsizetype(400) * 330 && many.at(1).endsWith(u"… (choice 2)"_s));
    }
};

QTEST_APPLESS_MAIN(DisplayTextTest)
#include "display_text_test.moc"
