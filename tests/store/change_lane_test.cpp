#include "store/change_lane.h"
#include "support/in_row.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

QString textOf(const JSON &value)
{
    const auto *const text = value.as<QString>();
    return text ? *text : u"?"_s;
}

} // namespace

/// Orders of changes and refusals, as a script: "a=2" is the person's change, "+" and "-" the service's answer to the
/// request under way, "a:2" what a dashboard shows. Fields begin with 0.
class ChangeLaneTest : public QObject
{
    Q_OBJECT

private slots:
    void orders()
    {
        // The name, the script, the requests told, field a as shown after each step, and whether fields are told
        // together.
        const std::tuple<const char *, QString, QString, QString, bool> rows[] = {
            {"taken", u"a=1 +"_s, u"a1"_s, u"11"_s, false},
            {"refused", u"a=1 -"_s, u"a1"_s, u"10"_s, false},
            {"both taken", u"a=1 a=2 + +"_s, u"a1 a2"_s, u"1222"_s, false},
            {"the first refused", u"a=1 a=2 - +"_s, u"a1 a2"_s, u"1222"_s, false},
            {"the second refused", u"a=1 a=2 + -"_s, u"a1 a2"_s, u"1221"_s, false},
            {"both refused", u"a=1 a=2 - -"_s, u"a1 a2"_s, u"1220"_s, false},
            {"what waits becomes one", u"a=1 a=2 a=3 a=4 + +"_s, u"a1 a4"_s, u"123444"_s, false},
            {"back to what is under way", u"a=1 a=2 a=1 +"_s, u"a1"_s, u"1211"_s, false},
            {"back to what is under way, refused", u"a=1 a=2 a=1 -"_s, u"a1"_s, u"1210"_s, false},
            {"back to the beginning", u"a=1 a=0 + +"_s, u"a1 a0"_s, u"1000"_s, false},
            {"back to the beginning, refused", u"a=1 a=0 -"_s, u"a1"_s, u"100"_s, false},
            {"a third while the second is under way", u"a=1 a=2 - a=3 - -"_s, u"a1 a2 a3"_s, u"122330"_s, false},
            {"a dashboard in between", u"a=1 a=2 + a:7 -"_s, u"a1 a2"_s, u"12227"_s, false},
            {"a dashboard that has what waits", u"a=1 a=2 a:2 -"_s, u"a1"_s, u"1222"_s, false},
            {"fields keep their order", u"a=1 b=1 a=2 b=2 + + +"_s, u"a1 b2 a2"_s, u"1122222"_s, false},
            {"fields together", u"a=1 b=1 a=2 + -"_s, u"a1 a2b1"_s, u"11221"_s, true}};
        for (const auto &[name, script, expectedTold, expectedShown, together] : rows) {
            const InRow row(name);
            ChangeLane lane;
            QHash<QString, bool> changed;
            QStringList told;
            QString shown;
            const auto tellNext = [&, together = together] {
                QString request;
                const JSONObject begun = lane.begin(together);
                for (auto field = begun.begin(); field != begun.end(); ++field)
                    request += field.key() + textOf(*field);
                if (!request.isEmpty())
                    told << request;
            };
            for (const QString &step : script.split(u' ')) {
                const QString field = step.left(1);
                if (step == u"+")
                    lane.accept();
                else if (step == u"-")
                    lane.refuse();
                else if (step.at(1) == u'=')
                    lane.want(field, std::exchange(changed[field], true) ? lane.shown(field) : JSON(u"0"),
                              step.sliced(2));
                else
                    lane.learn(field, step.sliced(2));
                tellNext();
                shown += textOf(lane.shown(u"a"_s));
            }
            QCOMPARE(told.join(u' '), expectedTold);
            QCOMPARE(shown, expectedShown);
            QVERIFY2(lane.begin(together).isEmpty(), "nothing waits");
        }
    }
};

QTEST_APPLESS_MAIN(ChangeLaneTest)
#include "change_lane_test.moc"
