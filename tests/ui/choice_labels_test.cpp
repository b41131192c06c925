#include "ui/choice_labels.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class ChoiceLabelsTest : public QObject
{
    Q_OBJECT

private slots:
    void labels_data()
    {
        QTest::addColumn<QStringList>("actions");
        QTest::addColumn<QStringList>("labels");
        const auto row = [](const char *name, const QStringList &actions, const QStringList &labels) {
            QTest::newRow(name) << actions << labels;
        };
        const QString tail = QString(400, u'x') + u" in "_s;
        row("different", {u"Hold"_s, u"Approve"_s}, {u"Hold"_s, u"Approve"_s});
        row("whole", {tail + u"staging"_s, tail + u"production"_s}, {tail + u"staging"_s, tail + u"production"_s});
        row("blank", {u"Hold"_s, u"\u3164"_s, u"\u2800"_s}, {u"Hold"_s, u"Choice 2"_s, u"Choice 3"_s});
        row("twice", {u"Yes"_s, u"No"_s, u" Yes\uFE0F\n"_s}, {u"Yes (choice 1)"_s, u"No"_s, u"Yes\uFE0F (choice 3)"_s});
        row("named as a blank one", {u"Choice 2"_s, u""_s}, {u"Choice 2 (choice 1)"_s, u"Choice 2 (choice 2)"_s});
        row("named as a numbered one", {u"Yes"_s, u"Yes"_s, u"Yes (choice 1)"_s},
            {u"Yes (choice 1)"_s, u"Yes (choice 2)"_s, u"Yes (choice 1) (choice 3)"_s});
        row("right to left", {u"כן"_s, u"כן"_s}, {u"\u2068כן\u2069 (choice 1)"_s, u"\u2068כן\u2069 (choice 2)"_s});
    }

    void labels()
    {
        QFETCH(QStringList, actions);
        QFETCH(QStringList, labels);
        const QStringList shown = choiceLabels(actions);
        // A run without spaces is broken for display.
        QCOMPARE(QStringList(shown).replaceInStrings(u"\u200B"_s, QString()), labels);
    }
};

QTEST_APPLESS_MAIN(ChoiceLabelsTest)
#include "choice_labels_test.moc"
