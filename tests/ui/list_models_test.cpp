#include "screen_fixture.h"
#include "ui/inbox/alert_list_model.h"
#include "ui/lists/list_steps.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// Writes down what a model announces, in order.
class Announcements : public QObject
{
public:
    explicit Announcements(const QAbstractItemModel &model)
    {
        using Model = QAbstractItemModel;
        const auto says = [this](const QString &word) {
            return [this, word](const auto &, int first, int last) { m_words << word.arg(first).arg(last); };
        };
        connect(&model, &Model::rowsInserted, this, says(u"insert %1-%2"_s));
        connect(&model, &Model::rowsRemoved, this, says(u"remove %1-%2"_s));
        connect(&model, &Model::rowsMoved, this, says(u"move %1-%2"_s));
        connect(&model, &Model::modelReset, this, [this] { m_words << u"reset"_s; });
        connect(&model, &Model::dataChanged, this, [this](auto first, auto last, const QList<int> &roles) {
            m_words << u"change %1-%2 roles %3"_s.arg(first.row()).arg(last.row()).arg(roles.size());
        });
    }

    /// What was announced since the last call, after everything asked for has happened.
    QString take()
    {
        QCoreApplication::sendPostedEvents();
        return std::exchange(m_words, {}).join(u", "_s);
    }

private:
    QStringList m_words;
};

QStringList letters(const QString &text)
{
    return text.split(QString(), Qt::SkipEmptyParts);
}

QStringList applied(QStringList list, const QList<ListStep> &steps, const QStringList &after)
{
    for (const ListStep &step : steps) {
        if (step.kind == ListStep::Kind::remove)
            list.remove(step.first, step.count);
        else if (step.kind == ListStep::Kind::move)
            list.move(step.first, step.to);
        else
            for (qsizetype offset = 0; offset < step.count; ++offset)
                list.insert(step.first + offset, after.at(step.first + offset));
    }
    return list;
}

/// A store with those alerts and a model that shows one of its lists.
struct Listed
{
    explicit Listed(AlertListModel::List list, int limit = 0, const QList<Alert> &alerts = {})
        : tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest)
        , store(makeSeed(alerts), true, nullptr, dayEnd, nullptr, nullptr)
    {
        model.setStore(&store);
        model.setList(list);
        model.setLimit(limit);
        model.componentComplete();
    }

    [[nodiscard]] AlertRow row(int index) const
    {
        return model.data(model.index(index), AlertListModel::ValueRole).value<AlertRow>();
    }

    AlertListModel model;
    QAbstractItemModelTester tester;
    Announcements announced{model};
    AppStore store;
};

} // namespace

class ListModelsTest : public QObject
{
    Q_OBJECT

private slots:
    void steps()
    {
        const auto count = [](const char *before, const char *after) {
            const QStringList from = letters(QString::fromLatin1(before));
            const QStringList to = letters(QString::fromLatin1(after));
            const auto steps = listSteps(from, to);
            return applied(from, steps, to) == to ? int(steps.size()) : -1;
        };
        QCOMPARE(count("abc", "abc"), 0);
        QCOMPARE(count("", "abc"), 1);
        QCOMPARE(count("abc", ""), 1);
        QCOMPARE(count("abcd", "xabycd"), 2);
        QCOMPARE(count("abcdef", "ade"), 2);
        QCOMPARE(count("abcdef", "bcdefa"), 1);
        QCOMPARE(count("abcdef", "fbcdea"), 2);
        QCOMPARE(count("abcdef", "xfcyad"), 6);
        QCOMPARE(count("abcde", "edcba"), 4);
        // Of very many differences, whatever their kind, one removal and one insertion are made.
        QString all;
        for (char16_t letter = 1; letter <= 600; ++letter)
            all += QChar(letter);
        const QStringList forwards = letters(all);
        const QStringList backwards(forwards.rbegin(), forwards.rend());
        QStringList fewer;
        for (qsizetype index = 0; index < forwards.size(); index += 2)
            fewer << forwards.at(index);
        for (const QStringList &other : {backwards, fewer}) {
            for (const auto &[before, after] : {std::pair(forwards, other), std::pair(other, forwards)}) {
                const auto steps = listSteps(before, after);
                QCOMPARE(steps.size(), 2);
                QCOMPARE(applied(before, steps, after), after);
            }
        }
    }

    void stepsOfManyRandomLists()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            QStringList all = letters(u"abcdefghijklmnop"_s);
            std::shuffle(all.begin(), all.end(), random);
            const QStringList before = all.first(random.bounded(17));
            std::shuffle(all.begin(), all.end(), random);
            const QStringList after = all.first(random.bounded(17));
            QCOMPARE(applied(before, listSteps(before, after), after), after);
        }
    }

    void onlyWhatDiffersIsAnnounced()
    {
        Listed listed(AlertListModel::List::Inbox);
        AppStore &store = listed.store;
        store.sendTestAlert();
        QCOMPARE(listed.announced.take(), u"insert 0-0"_s);
        store.sendTestAlert();
        QCOMPARE(listed.announced.take(), u"insert 1-1"_s);

        const QString id = listed.row(1).id;
        store.setRead(id, true);
        QCOMPARE(listed.announced.take(), u"change 1-1 roles 1"_s);
        QVERIFY(listed.row(1).read);
        store.setRead(id, true);
        store.setReplyDraft(u"a draft is no change of an alert"_s, id);
        store.setFocusMode(true);
        store.selectAlert(id);
        QCOMPARE(listed.announced.take(), QString());

        store.deleteAlert(id);
        QCOMPARE(listed.announced.take(), u"remove 1-1"_s);
        store.selectWorkspace(u"w2"_s);
        QCOMPARE(listed.announced.take(), u"remove 0-0"_s);
    }

    void limitCutsTheRowsButNotTheTotal()
    {
        Listed listed(AlertListModel::List::Today, 6);
        for (int count = 0; count < 10; ++count)
            listed.store.sendTestAlert();
        QCOMPARE(listed.announced.take(), u"insert 0-5"_s);
        QCOMPARE(listed.model.total(), 10);
        listed.model.setLimit(8);
        QCOMPARE(listed.announced.take(), u"insert 6-7"_s);

        Alert text = makeTextAsk(u"t"_s, u"What?"_s, 4);
        text.actions = {u"Not"_s, u"offered"_s, u"here"_s};
        Listed offered(AlertListModel::List::NeedsReply, 0,
                       {text, makeChoice(u"a"_s, u"First"_s, 5), makeChoice(u"b"_s, u"Second"_s, 6),
                        makeChoice(u"c"_s, u"Third"_s, 7)});
        offered.model.setChoiceLimit(3);
        QCOMPARE(offered.announced.take(), u"insert 0-3, remove 3-3"_s);
        QCOMPARE(offered.model.choices(), 4);
    }

    void repeatedIdentifiersAreOneRow()
    {
        Listed listed(AlertListModel::List::NeedsReply, 0,
                      {makeChoice(u"a"_s, u"First"_s, 5), makeChoice(u"a"_s, u"Again"_s, 5),
                       makeChoice(QString(), u"Nameless"_s, 5)});
        QCOMPARE(listed.announced.take(), u"insert 0-1"_s);
        listed.store.answer(u"a"_s, u"Hold"_s);
        QCOMPARE(listed.announced.take(), u"change 0-0 roles 1"_s);
    }

    void rowsTellTheStateOfTheirAlert()
    {
        Alert ask = makeChoice(u"a1"_s, u"Ship\nit?\u202E"_s, 5);
        ask.actions << u"\u200B"_s;
        ask.expiresAt = dayEnd + Seconds(60);
        const AlertRow row = Listed(AlertListModel::List::NeedsReply, 0, {ask}).row(0);
        QCOMPARE(row.title, u"Ship it?"_s);
        QCOMPARE(row.state, u"waiting"_s);
        QVERIFY(row.canAnswer);
        QCOMPARE(row.actions, ask.actions);
        QCOMPARE(row.actionLabels, (QStringList{u"Hold"_s, u"Approve"_s, u"Choice 3"_s}));
        QCOMPARE(row.expiresAt - row.at, 360'000.0);
    }
};

QTEST_GUILESS_MAIN(ListModelsTest)
#include "list_models_test.moc"
