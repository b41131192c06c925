#include "screen_fixture.h"
#include "ui/alert_list_model.h"
#include "ui/list_steps.h"
#include "ui/workspace_list_model.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QTest>

#include <numeric>

using namespace pingwell;

namespace {

/// Writes down what a model announces, in order.
class Announcements : public QObject
{
public:
    explicit Announcements(const QAbstractItemModel &model)
    {
        connect(&model, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
            m_words << QStringLiteral("insert %1-%2").arg(first).arg(last);
        });
        connect(&model, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            m_words << QStringLiteral("remove %1-%2").arg(first).arg(last);
        });
        connect(&model, &QAbstractItemModel::rowsMoved, this,
                [this](const QModelIndex &, int first, int, const QModelIndex &, int to) {
                    m_words << QStringLiteral("move %1>%2").arg(first).arg(to);
                });
        connect(
            &model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last, const QList<int> &roles) {
                m_words << QStringLiteral("change %1-%2 roles %3").arg(first.row()).arg(last.row()).arg(roles.size());
            });
        connect(&model, &QAbstractItemModel::modelReset, this, [this] { m_words << QStringLiteral("reset"); });
    }

    /// What was announced since the last call, after everything asked for has happened.
    QString take()
    {
        QCoreApplication::sendPostedEvents();
        return std::exchange(m_words, {}).join(QStringLiteral(", "));
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

/// A store with the alerts "a2" (an ask), "a1", "a0", and a model that shows a list of them.
struct Listed
{
    explicit Listed(AlertListModel::List list, int limit = 0)
        : tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest)
        , announced(model)
        , store(makeSeed({}), true, nullptr, dayEnd, nullptr, nullptr)
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
    Announcements announced;
    AppStore store;
};

} // namespace

class ListModelsTest : public QObject
{
    Q_OBJECT

private slots:
    void steps_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("count");
        QTest::newRow("nothing new") << "abc"
                                     << "abc" << 0;
        QTest::newRow("filled") << ""
                                << "abc" << 1;
        QTest::newRow("emptied") << "abc"
                                 << "" << 1;
        QTest::newRow("one on top") << "abc"
                                    << "xabc" << 1;
        QTest::newRow("two in two places") << "abcd"
                                           << "xabycd" << 2;
        QTest::newRow("neighbours go together") << "abcdef"
                                                << "af" << 1;
        QTest::newRow("two ranges go") << "abcdef"
                                       << "ade" << 2;
        QTest::newRow("first to the end moves one") << "abcdef"
                                                    << "bcdefa" << 1;
        QTest::newRow("last to the front moves one") << "abcdef"
                                                     << "fabcde" << 1;
        QTest::newRow("swapped ends move two") << "abcdef"
                                               << "fbcdea" << 2;
        QTest::newRow("all at once") << "abcdef"
                                     << "xfcyad" << 6;
        QTest::newRow("reversed") << "abcde"
                                  << "edcba" << 4;
    }

    void steps()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(int, count);
        const auto steps = listSteps(letters(before), letters(after));
        QCOMPARE(applied(letters(before), steps, letters(after)), letters(after));
        QCOMPARE(int(steps.size()), count);
    }

    void stepsOfManyRandomLists()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            QStringList all = letters(QStringLiteral("abcdefghijklmnop"));
            std::shuffle(all.begin(), all.end(), random);
            const QStringList before = all.first(random.bounded(17));
            std::shuffle(all.begin(), all.end(), random);
            const QStringList after = all.first(random.bounded(17));
            QCOMPARE(applied(before, listSteps(before, after), after), after);
        }
    }

    void tenThousandRowsTakeOnePass()
    {
        QStringList before;
        for (int row = 0; row < 10'000; ++row)
            before << QString::number(row);
        QStringList after = before;
        after.move(9'999, 0);
        after.removeAt(5'000);
        after.insert(7'000, QStringLiteral("new"));
        const auto steps = listSteps(before, after);
        QCOMPARE(steps.size(), 3);
        QCOMPARE(applied(before, steps, after), after);
    }

    void onlyWhatDiffersIsAnnounced()
    {
        Listed listed(AlertListModel::List::Inbox);
        AppStore &store = listed.store;
        QCOMPARE(listed.announced.take(), QString());

        store.sendTestAlert();
        QCOMPARE(listed.announced.take(), QStringLiteral("insert 0-0"));
        store.sendTestAlert();
        QCOMPARE(listed.announced.take(), QStringLiteral("insert 1-1"));

        const QString id = listed.row(1).id;
        store.setRead(id, true);
        QCOMPARE(listed.announced.take(), QStringLiteral("change 1-1 roles 1"));
        QVERIFY(listed.row(1).read);
        store.setRead(id, true);
        store.setReplyDraft(QStringLiteral("a draft is no change of an alert"), id);
        store.setFocusMode(true);
        store.selectAlert(id);
        QCOMPARE(listed.announced.take(), QString());

        store.deleteAlert(id);
        QCOMPARE(listed.announced.take(), QStringLiteral("remove 1-1"));
        store.selectWorkspace(QStringLiteral("w2"));
        QCOMPARE(listed.announced.take(), QStringLiteral("remove 0-0"));
    }

    void limitCutsTheRowsButNotTheTotal()
    {
        Listed listed(AlertListModel::List::Today, 6);
        for (int count = 0; count < 10; ++count)
            listed.store.sendTestAlert();
        QCOMPARE(listed.announced.take(), QStringLiteral("insert 0-5"));
        QCOMPARE(listed.model.count(), 6);
        QCOMPARE(listed.model.total(), 10);
        listed.model.setLimit(8);
        QCOMPARE(listed.announced.take(), QStringLiteral("insert 6-7"));
    }

    void rowsTellTheStateOfTheirAlert()
    {
        Alert ask = makeChoice(QStringLiteral("a1"), QStringLiteral("Ship\nit?\u202E"), 5);
        ask.actions << QStringLiteral("\u200B");
        ask.expiresAt = dayEnd + Seconds(60);
        const AppStore store(makeSeed({ask}), true, nullptr, dayEnd, nullptr, nullptr);
        const AlertRow row = alertRow(snapshotOf(ask, store));
        QCOMPARE(row.title, QStringLiteral("Ship it?"));
        QCOMPARE(row.state, QStringLiteral("waiting"));
        QVERIFY(row.canAnswer);
        QCOMPARE(row.actions, ask.actions);
        QCOMPARE(row.actionLabels,
                 (QStringList{QStringLiteral("Hold"), QStringLiteral("Approve"), QStringLiteral("(no text)")}));
        QCOMPARE(row.expiresAt - row.at, 360'000.0);
    }

    void workspacesTellWhichIsActive()
    {
        AppStore store(makeSeed({}), true, nullptr, dayEnd, nullptr, nullptr);
        WorkspaceListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        Announcements announced(model);
        model.setStore(&store);
        QCOMPARE(announced.take(), QStringLiteral("insert 0-1"));
        QCOMPARE(model.active().name, QStringLiteral("Platform"));
        store.selectWorkspace(QStringLiteral("w2"));
        QCOMPARE(announced.take(), QStringLiteral("change 0-0 roles 1, change 1-1 roles 1"));
        QVERIFY(!model.active().isTeam);
    }
};

QTEST_GUILESS_MAIN(ListModelsTest)
#include "list_models_test.moc"
